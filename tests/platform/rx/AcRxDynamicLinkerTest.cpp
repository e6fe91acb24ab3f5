#include "platform/rx/AcRxDynamicLinker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/platform/rx/module/ModuleScript.h"

ModuleScript moduleScript;  // found by the module under this name

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class AcRxDynamicLinkerTest : public testing::Test {
protected:
    AcRxDynamicLinkerTest() { moduleScript = {}; }

    /// Loads the module, which refuses; gives the reason.
    static std::string refusal(const std::string& path) {
        std::string error;
        EXPECT_FALSE(acrxDynamicLinker->loadModule(path.c_str(), error));
        return error;
    }

    const std::string path_ = TEST_RX_MODULE;
};

TEST_F(AcRxDynamicLinkerTest, LoadsOnceTellsTheModuleAndUnloadsIt) {
    std::string error;
    ASSERT_TRUE(acrxDynamicLinker->loadModule(path_.c_str(), error)) << error;
    EXPECT_TRUE(moduleScript.unlocked);
    EXPECT_FALSE(moduleScript.foreignPacketTaken);

    const std::filesystem::path file(path_);
    const std::filesystem::path roundabout =
        file.parent_path() / ".." / file.parent_path().filename() / file.filename();
    EXPECT_TRUE(acrxDynamicLinker->loadModule(roundabout.c_str(), error));
    EXPECT_TRUE(acrxDynamicLinker->unloadModule(roundabout.c_str()));
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(path_.c_str()));
    EXPECT_THAT(moduleScript.messages, ElementsAre(AcRx::kInitAppMsg, AcRx::kUnloadAppMsg));
}

TEST_F(AcRxDynamicLinkerTest, RefusesFilesThatAreNoModuleForUs) {
    EXPECT_THAT(refusal("/nowhere/none.arx"), HasSubstr("\"/nowhere/none.arx\": there is no such"));

    const std::filesystem::path text =
        std::filesystem::path(testing::TempDir()) / "linker_test_no_module.arx";
    std::ofstream(text) << "not a module";
    EXPECT_THAT(refusal(text.string()), HasSubstr(text.filename().string()));
    std::filesystem::remove(text);

    moduleScript.apiVersion = 14;
    EXPECT_THAT(refusal(path_), HasSubstr("release 14"));
    EXPECT_TRUE(moduleScript.messages.empty());
}

TEST_F(AcRxDynamicLinkerTest, AModuleThatAnswersAnErrorIsNotLoaded) {
    moduleScript.answer = AcRx::kRetError;
    EXPECT_THAT(refusal(path_), HasSubstr("answered its load message with 3"));
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(path_.c_str()));

    moduleScript.answer = AcRx::kRetOK;
    std::string error;
    EXPECT_TRUE(acrxDynamicLinker->loadModule(path_.c_str(), error)) << error;
    EXPECT_TRUE(acrxDynamicLinker->unloadModule(path_.c_str()));
}

TEST(AcRxDynamicLinkerLockTest, AModuleThatDidNotUnlockStaysLoaded) {
    moduleScript = {};
    moduleScript.unlock = false;
    AcRxDynamicLinker linker;
    std::string error;
    ASSERT_TRUE(linker.loadModule(TEST_RX_MODULE, error)) << error;
    EXPECT_FALSE(linker.unloadModule(TEST_RX_MODULE));
    EXPECT_THAT(moduleScript.messages, ElementsAre(AcRx::kInitAppMsg));
}

TEST(AcRxAbortDeathTest, SaysWhy) {
    EXPECT_DEATH(acrx_abort("Failed %s()", "AcDbObject::close"), "Failed AcDbObject::close\\(\\)");
}

}  // namespace
