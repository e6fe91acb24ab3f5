#include "platform/mfc/CFileFind.h"

#include <gtest/gtest.h>

#include "tests/platform/win32/ScratchFolder.h"

TEST(CFileFind, TheLoopSeesEveryFileOnce) {
    const ScratchFolder scratch;
    for (const char* name : {"KFSJ2-1.dwg", "KFSJ1-1.dwg", "KFSJ3.dwg", "KFZK1-1.dwg"}) {
        scratch.Write(name, "");
    }
    std::string names;
    CFileFind finder;
    EXPECT_FALSE(finder.FindNextFile()) << "before any search";
    BOOL more = finder.FindFile(scratch.Windows("KFSJ*.dwg").c_str());
    EXPECT_TRUE(finder.GetFileName().IsEmpty());
    while (more != FALSE) {
        more = finder.FindNextFile();
        names += std::string(static_cast<const char*>(finder.GetFileName())) + " ";
    }
    EXPECT_EQ(names, "KFSJ1-1.dwg KFSJ2-1.dwg KFSJ3.dwg ");
    EXPECT_FALSE(finder.FindFile(scratch.Windows("none*").c_str()));
}
