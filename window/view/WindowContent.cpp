#include "window/view/WindowContent.h"

namespace jsw::view {
namespace {

std::string cancelQuestion(const Progress& progress, const Strings& strings) {
    const auto left = pagesLeft(progress);
    if (!left) return strings.cancelQuestionUnknown;
    return ui::fillIn(strings.cancelQuestion.form(*left), {ui::grouped(*left, strings.thousands)});
}

void describeInk(const JobData& data, const Strings& strings, WindowContent& content) {
    const std::vector<InkSlot> slots = shownInkSlots(data.inkPercents, data.reserveMode);
    content.inkSentence = data.inkTold ? inkSummary(slots, strings) : strings.inkLoading;
    for (const InkSlot& slot : slots) {
        content.ink.push_back(
            {inkLabel(slot, strings), inkLevel(slot, strings), slot.percent, slot.isLow()});
    }
}

void describeQuestion(const JobData& data, Question question, const Strings& strings,
                      WindowContent& content) {
    content.question = question;
    if (question == Question::cancel) {
        content.questionText = cancelQuestion(data.progress, strings);
        content.yes = strings.cancelYes;
        content.no = strings.cancelNo;
    } else if (question == Question::close) {
        content.questionText = strings.closeNotice;
        content.yes = strings.closeYes;
        content.no = strings.closeNo;
    }
}

}  // namespace

WindowContent describeJob(const JobData& data, Question question, const Strings& strings) {
    WindowContent content;
    content.job = data.jobName.empty() ? strings.untitled : data.jobName;
    content.title = ui::fillIn(strings.windowTitle, {content.job});
    content.printer = data.printerName.empty() ? strings.somePrinter : data.printerName;
    content.isSimulated = isSimulatedPrinter(data.printerName);
    content.isCancelling = data.cancelling;
    content.progress = data.cancelling ? strings.cancelling : progressText(data.progress, strings);
    content.time = data.cancelling ? strings.waitingForPrinter : timeText(data.progress, strings);
    content.permille = progressPermille(data.progress);
    content.cancel = data.cancelling ? strings.cancelled : strings.cancel;
    describeInk(data, strings, content);
    describeQuestion(data, question, strings, content);
    return content;
}

bool cancellingNeedsAsking(const JobData& data) {
    return pagesLeft(data.progress) != 0;
}

bool closingNeedsExplaining(const JobData& data) {
    return !data.closingExplained && !data.cancelling && pagesLeft(data.progress) != 0;
}

Page emptyPage(const Strings& strings) {
    Page page;
    page.title = strings.emptyTitle;
    page.picture = Picture::printer;
    page.paragraphs = {plainParagraph(strings.emptyText)};
    return page;
}

Page unshowablePage(const std::string& fileName, Problem problem, const Strings& strings) {
    const std::string reason =
        fileName + ": " + strings.problems[static_cast<std::size_t>(problem)];
    Page page;
    page.title = strings.brokenTitle;
    page.picture = Picture::printer;
    page.paragraphs = {plainParagraph(strings.brokenText),
                       plainParagraph(ui::fillIn(strings.brokenReason, {reason}))};
    return page;
}

}  // namespace jsw::view
