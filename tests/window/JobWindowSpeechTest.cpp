#include "tests/window/JobWindowTest.h"

#include <oleacc.h>
#include <string>

namespace jsw::test {
namespace {

/// What a screen reader gets for a control or, from 1, for a part of it.
struct Spoken {
    std::string name;
    std::string value;
    std::string description;
    long role = 0;
    long parts = 0;
};

std::string taken(BSTR text) {
    std::string letters;
    for (const wchar_t* letter = text; letter && *letter; ++letter) {
        letters += *letter < 128 ? static_cast<char>(*letter) : '?';
    }
    SysFreeString(text);
    return letters;
}

Spoken speak(HWND control, long part = CHILDID_SELF) {
    Spoken spoken;
    IAccessible* object = nullptr;
    if (FAILED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT),
                                          __uuidof(IAccessible),
                                          reinterpret_cast<void**>(&object)))) {
        return spoken;
    }
    VARIANT which{};
    which.vt = VT_I4;
    which.lVal = part;
    BSTR text = nullptr;
    if (object->get_accName(which, &text) == S_OK) spoken.name = taken(text);
    if (object->get_accValue(which, &text) == S_OK) spoken.value = taken(text);
    if (object->get_accDescription(which, &text) == S_OK) spoken.description = taken(text);
    VARIANT role{};
    if (object->get_accRole(which, &role) == S_OK) spoken.role = role.lVal;
    object->get_accChildCount(&spoken.parts);
    object->Release();
    return spoken;
}

TEST_F(JobWindowTest, TellsScreenReadersWhatItShows) {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)));
    startJob();
    show();
    const Spoken progress = speak(control(JSW_VIEW_PROGRESS_BAR));
    EXPECT_EQ(progress.role, ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(progress.name, "Progress");
    EXPECT_EQ(progress.value, "33%");
    UpdateInfo(3, 1, 5, nullptr);
    settle();
    EXPECT_EQ(speak(control(JSW_VIEW_PROGRESS_BAR)).value, "100%");

    const Spoken ink = speak(control(JSW_VIEW_INK));
    EXPECT_EQ(ink.name, "Ink levels");
    ASSERT_EQ(ink.parts, 2);
    const Spoken second = speak(control(JSW_VIEW_INK), 2);
    EXPECT_EQ(second.name, "Cartridge 2");
    EXPECT_EQ(second.value, "10% low");
    EXPECT_EQ(second.role, ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(speak(control(JSW_VIEW_INK), 3).name, "");

    const Spoken page = speak(control(JSW_VIEW_BILLBOARD));
    EXPECT_EQ(page.name, "A page");
    EXPECT_EQ(page.description, "Text with a link.");
    EXPECT_EQ(speak(control(JSW_VIEW_BILLBOARD), 1).name, "Text with a link.");
    const Spoken link = speak(control(JSW_VIEW_CONTENT_LINK));
    EXPECT_EQ(link.role, ROLE_SYSTEM_LINK);
    EXPECT_EQ(link.name, "a link");

    EXPECT_EQ(speak(control(JSW_VIEW_PROGRESS_TEXT)).name, "Page 3 of 3");
    EXPECT_NE(speak(control(JSW_VIEW_CANCEL)).name, "");
    for (int id = JSW_VIEW_PREVIOUS; id <= JSW_VIEW_INK_STATUS; ++id) {
        EXPECT_NE(speak(control(id)).name, "") << id;
    }
    Uninitialize();
    CoUninitialize();
}

}  // namespace
}  // namespace jsw::test
