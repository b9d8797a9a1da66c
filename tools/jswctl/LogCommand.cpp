#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/RotateLog.h"
#include "tools/jswctl/Utf8.h"
#include "tools/jswctl/log/HtmlReport.h"
#include "tools/jswctl/log/JsonReport.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"
#include "tools/jswctl/log/TextReport.h"
#include "tools/jswctl/log/Words.h"

#include <windows.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

namespace jsw::ctl {

namespace {

struct LogOptions {
    std::string file;
    std::string html;
    std::string rotate;
    bool json = false;
    bool texts = false;
};

void write(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

/// Reports each job as it ends and collects the statistics.
class JobTeller : public log::JobListener {
  public:
    explicit JobTeller(const LogOptions& options) : options_(options), json_(toUtf8) {}

    void onCall(const log::Call& call, const log::LoggedJob& job) override {
        statistics_.add(call, job);
    }

    void onJob(const log::LoggedJob& job) override {
        statistics_.add(job);
        if (!log::isWorthTelling(job)) return;
        if (options_.json) write(json_.job(job));
        if (!options_.html.empty()) html_.add(job);
        if (isTold()) write(log::jobAsText(job));
    }

    /// Writes the rest after the whole log has been read.
    void end(const log::Totals& totals) {
        if (options_.json) write(json_.end(totals, statistics_));
        if (!options_.html.empty()) writePage(totals);
        if (isTold()) write(log::summaryAsText(totals, statistics_));
    }

    const log::Statistics& statistics() const { return statistics_; }

  private:
    bool isTold() const { return !options_.json && options_.html.empty(); }

    void writePage(const log::Totals& totals) {
        std::ofstream page(options_.html, std::ios::binary);
        page << toUtf8(html_.page(options_.file, totals, statistics_));
        page.close();
        if (!page) throw BadUse("cannot write " + options_.html);
        if (!options_.json) write("Wrote " + options_.html + "\n");
    }

    const LogOptions& options_;
    log::Statistics statistics_;
    log::JsonReport json_;
    log::HtmlReport html_;
};

bool isFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::ifstream openLog(const std::string& file) {
    if (isFolder(file)) throw BadUse(file + " is a folder, not a log");
    std::ifstream input(file, std::ios::binary);
    if (!input) throw BadUse("cannot read " + file + ", " + errorText(GetLastError()));
    return input;
}

/// Compares the files, not their names: one file may have several.
bool isSameFile(const std::string& one, const std::string& other) {
    char full[2][MAX_PATH] = {};
    return GetFullPathNameA(one.c_str(), MAX_PATH, full[0], nullptr) != 0 &&
           GetFullPathNameA(other.c_str(), MAX_PATH, full[1], nullptr) != 0 &&
           lstrcmpiA(full[0], full[1]) == 0;
}

void requireLog(const log::Totals& totals, const std::string& file) {
    if (totals.isLog()) return;
    if (totals.bytes == 0) throw BadUse(file + " is empty");
    throw BadUse(file + " is not a log: no line " +
                 (totals.gaveUp ? "of its first megabyte " : "in it ") + "looks like one");
}

int tell(const LogOptions& options) {
    if (options.texts) {
        write(log::knownTextsAsMarkdown());
        return kWell;
    }
    if (!options.rotate.empty()) return rotateLog(options.rotate);
    if (options.file.empty()) throw BadUse("no log given; try jswctl log --help");
    if (isSameFile(options.file, options.html)) {
        throw BadUse("the page would overwrite the log " + options.file);
    }
    std::ifstream input = openLog(options.file);
    JobTeller teller(options);
    const log::Totals totals = log::readLog(input, teller);
    requireLog(totals, options.file);
    teller.end(totals);
    return teller.statistics().isAnythingStopped() ? kFindings : kWell;
}

}  // namespace

void addLogCommand(CommandLine& program) {
    Command command = program.command("log", "Explains a log.");
    const auto options = std::make_shared<LogOptions>();
    command.option("FILE", options->file, "the log, such as %ALLUSERSPROFILE%\\abcdJSW.log")
        .shownAs("");
    command.option("--html", options->html, "writes a page with pictures instead").shownAs("OUT");
    command.flag("--json", options->json, "writes one JSON object instead");
    command
        .option("--rotate", options->rotate,
                "renames the log of a host to <id>JSW.old.log instead; loses no line")
        .shownAs("HOST.exe");
    command.flag("--texts", options->texts,
                 "writes a Markdown table of the log's problem lines with causes and "
                 "remedies; takes no file");
    command.does([options] { return tell(*options); });
}

}  // namespace jsw::ctl
