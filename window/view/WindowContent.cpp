#include "window/view/WindowContent.h"

namespace jsw::window {
namespace {

std::string cancelQuestion(const Progress& progress, const WindowTexts& texts) {
    const auto left = pagesLeft(progress);
    if (!left) return texts.cancelQuestionUnknown;
    return common::fillIn(common::plural(*left, texts.cancelQuestionOne, texts.cancelQuestion),
                          {common::grouped(*left, texts.thousands)});
}

void describeInk(const JobData& data, const Cartridges& cartridges, const WindowTexts& texts,
                 WindowContent& content) {
    std::vector<InkSlot> slots = shownInkSlots(data.inkPercents, data.reserveMode);
    for (InkSlot& slot : slots) {
        const std::size_t index = slot.number - 1;
        slot.partNumber = index < data.partNumbers.size() ? data.partNumbers[index] : 0;
        slot.known = cartridges.find(slot.partNumber, slot.number);
        content.ink.push_back({inkLabel(slot, texts), inkLevel(slot, texts), slot.percent,
                               slot.isLow(), slot.known.colour});
    }
    content.inkSentence = data.inkTold ? inkSummary(slots, texts) : texts.inkLoading;
}

void describeQuestion(const JobData& data, Question question, const WindowTexts& texts,
                      WindowContent& content) {
    content.question = question;
    if (question == Question::cancel) {
        content.questionText = cancelQuestion(data.progress, texts);
        content.yes = texts.cancelYes;
        content.no = texts.cancelNo;
    } else if (question == Question::close) {
        content.questionText = texts.closeNotice;
        content.yes = texts.closeYes;
        content.no = texts.closeNo;
    }
}

}  // namespace

WindowContent describeJob(const JobData& data, Question question, const WindowTexts& texts,
                          const Cartridges& cartridges) {
    WindowContent content;
    content.job = data.jobName.empty() ? texts.untitled : data.jobName;
    content.title = common::fillIn(texts.windowTitle, {content.job});
    content.printer = data.printerName.empty() ? texts.somePrinter : data.printerName;
    content.isSimulated = isSimulatedPrinter(data.printerName);
    content.isCancelling = data.cancelling;
    content.progress = data.cancelling ? texts.cancelling : progressText(data.progress, texts);
    content.time = data.cancelling ? texts.waitingForPrinter : timeText(data.progress, texts);
    content.permille = progressPermille(data.progress);
    content.cancel = data.cancelling ? texts.cancelled : texts.cancel;
    describeInk(data, cartridges, texts, content);
    describeQuestion(data, question, texts, content);
    return content;
}

bool cancellingNeedsAsking(const JobData& data) {
    return pagesLeft(data.progress) != 0;
}

bool closingNeedsExplaining(const JobData& data) {
    return !data.closingExplained && !data.cancelling && pagesLeft(data.progress) != 0;
}

Page emptyPage(const WindowTexts& texts) {
    Page page;
    page.title = texts.emptyTitle;
    page.picture = Picture::printer;
    page.paragraphs = {plainParagraph(texts.emptyText)};
    return page;
}

const std::string& problemText(Problem problem, const WindowTexts& texts) {
    switch (problem) {
#define JSW_PROBLEM(name, english) \
    case Problem::name:            \
        return texts.name;
        JSW_PAGE_PROBLEMS(JSW_PROBLEM)
#undef JSW_PROBLEM
        case Problem::none:
            break;
    }
    return texts.unreadable;
}

Page unshowablePage(const std::string& fileName, Problem problem, const WindowTexts& texts) {
    const std::string reason = fileName + ": " + problemText(problem, texts);
    Page page;
    page.title = texts.brokenTitle;
    page.picture = Picture::printer;
    page.paragraphs = {plainParagraph(texts.brokenText),
                       plainParagraph(common::fillIn(texts.brokenReason, {reason}))};
    return page;
}

}  // namespace jsw::window
