#include "platform/mfc/resources.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

#include "platform/mfc/CAcExtensionModule.h"
#include "tests/platform/mfc/TestModule.h"

TEST(Resources, ATemplateIsFoundCopiedAndRead) {
    const TestModule current;
    const HINSTANCE module = AfxGetResourceHandle();
    const HRSRC found = FindResource(module, MAKEINTRESOURCE(TestModule::kNotes), RT_DIALOG);
    ASSERT_NE(found, nullptr);
    const void* locked = LockResource(LoadResource(module, found));
    std::vector<std::byte> copy(SizeofResource(module, found));
    std::memcpy(copy.data(), locked, copy.size());

    const mfc::DialogDescription given = TestModule::Resources().dialogs[2];
    const mfc::DialogDescription read = mfc::ReadDialogTemplate(copy.data());
    EXPECT_EQ(read.number, given.number);
    EXPECT_EQ(read.caption, given.caption);
    EXPECT_EQ(read.style, given.style);
    EXPECT_EQ(read.rect, given.rect);
    ASSERT_EQ(read.controls.size(), given.controls.size());
    for (std::size_t i = 0; i < given.controls.size(); ++i) {
        const mfc::ControlDescription& expected = given.controls[i];
        EXPECT_EQ(read.controls[i].id, expected.id);
        EXPECT_EQ(read.controls[i].windowClass, expected.windowClass);
        EXPECT_EQ(read.controls[i].style, expected.style | WS_CHILD | WS_VISIBLE);
        EXPECT_EQ(read.controls[i].rect, expected.rect);
        EXPECT_EQ(read.controls[i].text, expected.text);
    }
    EXPECT_EQ(mfc::MakeDialogTemplate(read), copy) << "the same bytes again";
}

TEST(Resources, TheTemplateIsOfThePublishedForm) {
    const std::vector<std::byte> made = mfc::MakeDialogTemplate(
        {601, "A", 0x80, {1, 2, 3, 4}, {{7, WC_BUTTON, BS_AUTOCHECKBOX, {5, 6, 7, 8}, "B"}}});
    const unsigned char expected[] = {
        1, 0, 0xFF, 0xFF, 0x59, 2, 0, 0, 0, 0, 0, 0, 0x80, 0, 0, 0,    // help: the number
        1, 0, 1, 0, 2, 0, 3, 0, 4, 0, 0, 0, 0, 0, 'A', 0, 0, 0, 0, 0,  // the title's end,
                                                                       // then up to a
                                                                       // multiple of four
        0, 0, 0, 0, 0, 0, 0, 0, 3, 0, 0, 0x50, 5, 0, 6, 0, 7, 0, 8, 0, 7, 0, 0, 0, 0xFF, 0xFF, 0x80,
        0, 'B', 0, 0, 0, 0, 0};
    ASSERT_EQ(made.size(), sizeof expected);
    EXPECT_EQ(std::memcmp(made.data(), expected, sizeof expected), 0);
}

TEST(Resources, WhatIsMissingOrGoneIsNull) {
    HINSTANCE module = nullptr;
    {
        const TestModule current;
        module = AfxGetResourceHandle();
        EXPECT_EQ(FindResource(module, MAKEINTRESOURCE(999), RT_DIALOG), nullptr);
        EXPECT_EQ(LockResource(LoadResource(module, nullptr)), nullptr);
        EXPECT_EQ(mfc::IconPicture(LoadIcon(module, MAKEINTRESOURCE(2007))), "the icon's picture");
        EXPECT_EQ(LoadIcon(module, MAKEINTRESOURCE(601)), nullptr) << "icons are not dialogs";
        CString text;
        EXPECT_TRUE(text.LoadString(100));
        EXPECT_STREQ(text, "查看颗粒分析成果图"_gbk);
        EXPECT_FALSE(text.LoadString(101));
        EXPECT_TRUE(text.IsEmpty());
    }
    EXPECT_EQ(FindResource(module, MAKEINTRESOURCE(TestModule::kNotes), RT_DIALOG), nullptr);
    EXPECT_EQ(LoadIcon(nullptr, MAKEINTRESOURCE(2007)), nullptr);
}

TEST(Resources, DescriptionsThatMakeNoSenseAreRefused) {
    EXPECT_THROW(mfc::MakeDialogTemplate({1, "", 0, {}, {{1, "ComboBox", 0, {}, ""}}}),
                 std::logic_error);
    EXPECT_THROW(mfc::RegisterModule({{{1, "", 0, {}, {}}, {1, "", 0, {}, {}}}, {}, {}}),
                 std::logic_error);
    const int noTemplate[4] = {};
    EXPECT_THROW(mfc::ReadDialogTemplate(noTemplate), std::logic_error);
}

TEST(CAcExtensionModule, ADetachedModuleIsNotCurrent) {
    const TestModule current;
    CAcExtensionModule record;
    record.AttachInstance(AfxGetResourceHandle());
    EXPECT_TRUE(record.Attached());
    record.DetachInstance();
    EXPECT_FALSE(record.Attached());
    EXPECT_EQ(record.ModuleResourceInstance(), nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
}
