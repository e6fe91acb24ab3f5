#pragma once

#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/ed/AcEdCommandStack.h"
#include "platform/ed/system_variables.h"
#include "platform/win32/window_message.h"
#include "platform/win32/windows_path.h"
#include "src/frame/entry_point.h"
#include "tests/src/chart/FoundFonts.h"
#include "tests/src/ui/ProjectFixture.h"

/// The plug-in, loaded, in a host with one untitled drawing open. The suite folder has the blank
/// drawing, and its fonts are found.
class FrameFixture : public ProjectFixture {
public:
    static void InApplicationContext(const std::function<void()>& work) {
        acDocManager->executeInApplicationContext(
            [](void* body) { (*static_cast<const std::function<void()>*>(body))(); },
            const_cast<std::function<void()>*>(&work));
    }
    static void NewDocument() {
        InApplicationContext([] { acDocManager->appContextNewDocument(); });
    }
    static void RunCommand(const char* name) {
        const AcEdCommand* const command = acedRegCmds->lookupCmd(name);
        ASSERT_NE(command, nullptr) << name;
        command->function();
    }
    static short DocumentMode() {
        resbuf value;
        acedGetVar("SDI", &value);
        return value.resval.rint;
    }
    static void SetDocumentMode(short mode) {
        resbuf value;
        value.restype = RTSHORT;
        value.resval.rint = mode;
        acedSetVar("SDI", &value);
    }

    /// Windows path of a file in the suite folder.
    std::string Path(const std::string& name) const {
        std::string path;
        EXPECT_TRUE(win32::WindowsPath((Folder() / name).string(), path));
        return path;
    }
    void MakeDrawing(const std::string& name) const {
        AcDbDatabase drawing(true, false);
        EXPECT_EQ(drawing.saveAs(Path(name).c_str()), Acad::eOk) << drawing.lastFileError();
    }
    /// Names of the files in the project's chart folder, sorted.
    std::vector<std::string> Sheets() const {
        std::vector<std::string> names;
        std::error_code missing;
        for (const auto& entry :
             std::filesystem::directory_iterator(Folder() / "output/GC1/室内曲线", missing)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    /// File name, without folders, of the current drawing.
    static std::string CurrentDrawing() {
        const std::string path = acDocManager->curDocument()->fileName();
        const std::size_t backslash = win32::FindLastChar(path, '\\');
        return Utf8(backslash == std::string::npos ? path : path.substr(backslash + 1));
    }

protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        std::filesystem::create_directory(Folder() / "Support");
        MakeDrawing("Support/Drawing.dwg");
        fonts_.emplace(Path("Support"));
        NewDocument();
        acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    }
    void TearDown() override {
        acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
        InApplicationContext([] {
            while (AcApDocument* const document = acDocManager->curDocument()) {
                acDocManager->closeDocument(document);
            }
        });
        fonts_.reset();
        SetDocumentMode(0);
        ProjectFixture::TearDown();
    }

private:
    std::optional<FoundFonts> fonts_;
};
