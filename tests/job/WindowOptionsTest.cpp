// What the user chooses in the window.

#include "jsw/settings/OfnSettings.h"
#include "tests/job/JobTest.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <utility>

namespace jsw {

using namespace ::testing;

class WindowOptionsTest : public test::JobTest {};

TEST_F(WindowOptionsTest, EveryOptionOfThePrinterReachesTheWindow) {
    const std::pair<const setting::Number*, const char*> rows[] = {
        {&setting::kShowProcessWindow, "SetShowProcessWindow(2)"},
        {&setting::kJobProgressMinimized, "SetJswProgressMinimized(3)"},
        {&setting::kShowSpecialMessages, "SetShowSpecialMessages(4)"},
        {&setting::kCart1ReserveTankFlag, "SetReserveModeCart1(5)"},
        {&setting::kCart2ReserveTankFlag, "SetReserveModeCart2(6)"},
        {&setting::kCompleteToPrint, "SetCompleteAPrintMode(7)"}};
    std::uint32_t value = 2;
    for (const auto& [option, call] : rows) {
        OfnSettings("").setValue(option->key, option->name, value++);
    }
    Settings().write(setting::kCheckForUpdates, 8);
    startJob();
    for (const auto& [option, call] : rows) EXPECT_THAT(script_.view.calls(), Contains(call));
    EXPECT_THAT(script_.view.calls(), Contains("SetUpdateSoftware(8)"));
    Settings().write(setting::kCheckForUpdates, 0);
    endJob();
}

TEST_F(WindowOptionsTest, AWindowThatTheUserSwitchedOffIsNeverShown) {
    startJob();
    script_.saveAppearance("show process window", 0);
    EXPECT_THAT(viewCalls("ShowGui").size(), 1U);
    endJob();
    EXPECT_EQ(startJob(), 1);
    EXPECT_EQ(viewCalls("ShowGui").size(), 1U);
    EXPECT_TRUE(
        hasLine("BillboardView::jswInit: guiShowProcessWindow indicates GUI should NOT be shown!"));
}

TEST_F(WindowOptionsTest, WhatTheUserChoosesComesBackAtTheNextJob) {
    startJob();
    script_.saveAppearance("JOB PROGRESS MINIMIZED", 1);
    script_.saveAppearance("Show Special Messages", 0);
    script_.saveAppearance("Volume", 11);
    script_.saveAppearance(nullptr, 1);
    script_.saveValue("WindowY", "33");
    script_.saveValue(nullptr, "x");
    script_.saveValue("NoText", nullptr);
    script_.saveUpdateSoftware(1);
    script_.clickBillboard(nullptr, 0);
    script_.clickBillboard("", 0);
    endJob();
    std::vector<std::string> names;
    OfnSettings("").getValueNames(setting::kJobProgressMinimized.key, names);
    EXPECT_THAT(names, UnorderedElementsAre("JOB PROGRESS MINIMIZED",  // unchanged
                                            "Show Special Messages"));
    script_.view.clear();
    startJob();
    EXPECT_THAT(script_.view.calls(),
                IsSupersetOf({"SetJswProgressMinimized(1)", "SetShowSpecialMessages(0)",
                              "SetUpdateSoftware(1)", "SetSavedValue(WindowY,33)",
                              "SetSavedValue(NoText,)"}));
    EXPECT_EQ(viewCalls("SetSavedValue").size(), 2U);
    EXPECT_TRUE(hasLine("BillboardView::saveAppearanceCallback: ERROR - Unsupported key"));
    EXPECT_TRUE(hasLine("BillboardView::billboardCallback: ERROR - action pointer is NULL"));
    EXPECT_TRUE(hasLine("BillboardView::billboardCallback: ERROR - action is empty string"));
    EXPECT_TRUE(Settings().write(setting::kCheckForUpdates, 0));
}

TEST_F(WindowOptionsTest, AChoiceThatCannotBeSavedOrReadBackIsToldToTheLog) {
    Settings().setValue(setting::kGuiKey, "Number", 5);
    startJob();
    EXPECT_THAT(viewCalls("SetSavedValue"), IsEmpty());
    EXPECT_TRUE(hasLine(
        "BillboardView::setSavedValues: ERROR - unable to read value for valueName=Number."));
    const auto readOnly = test::replaceImport<decltype(RegSetValueExA)>(
        test::ImportTable(GetModuleHandleA("jsw.dll")), "RegSetValueExA",
        [](auto...) { return LSTATUS{ERROR_ACCESS_DENIED}; });
    script_.saveUpdateSoftware(1);
    EXPECT_TRUE(
        hasLine("BillboardView::saveUpdateSoftwareCallback: Unable to write the registry for "
                "key='Settings\\Updater' and value name='CheckForUpdates'."));
}

}  // namespace jsw
