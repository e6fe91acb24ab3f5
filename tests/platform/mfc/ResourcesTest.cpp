#include "platform/mfc/resources.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

#include "platform/mfc/CAcExtensionModule.h"
#include "platform/mfc/DialogModel.h"
#include "tests/platform/mfc/TestModule.h"

TEST(Resources, ATemplateIsFoundCopiedAndRead) {
    const TestModule current;
    const HINSTANCE module = AfxGetResourceHandle();
    const HRSRC found = FindResource(module, MAKEINTRESOURCE(TestModule::kNotes), RT_DIALOG);
    ASSERT_NE(found, nullptr);
    const void* locked = LockResource(LoadResource(module, found));
    DLGTEMPLATE copy{};
    ASSERT_EQ(SizeofResource(module, found), sizeof copy);
    std::memcpy(&copy, locked, sizeof copy);

    const mfc::DialogDescription given = TestModule::Resources().dialogs[2];
    const mfc::DialogDescription& read = *copy.description;
    EXPECT_EQ(read.number, given.number);
    EXPECT_EQ(read.caption, given.caption);
    EXPECT_EQ(read.rect, given.rect);
    ASSERT_EQ(read.controls.size(), given.controls.size());
    for (std::size_t i = 0; i < given.controls.size(); ++i) {
        EXPECT_EQ(read.controls[i].id, given.controls[i].id);
        EXPECT_EQ(read.controls[i].windowClass, given.controls[i].windowClass);
        EXPECT_EQ(read.controls[i].text, given.controls[i].text);
    }
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
    EXPECT_THROW(mfc::DialogModel({1, "", 0, {}, {{1, "ComboBox", 0, {}, ""}}}, nullptr),
                 std::logic_error);
    EXPECT_THROW(mfc::RegisterModule({{{1, "", 0, {}, {}}, {1, "", 0, {}, {}}}, {}, {}}),
                 std::logic_error);
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
