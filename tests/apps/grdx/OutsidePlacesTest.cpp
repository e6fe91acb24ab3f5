// Suite folders that come from somebody else and lead out of themselves.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "tests/system/Program.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

namespace {
constexpr const char* kVictim = "export PATH\n";

class OutsidePlacesTest : public testing::Test {
protected:
    OutsidePlacesTest() {
        fs::create_directories(outside_);
        scratch_.Write("outside/victim", kVictim);
        fs::copy(suite_.Folder() / "Support", outside_ / "Support");
        fs::copy(suite_.Database(), outside_ / "other.db");
    }
    ProgramResult Grdx(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(),
                         {"env", "XDG_CONFIG_HOME=" + configuration_.string(), GRDX_PROGRAM});
        arguments.insert(arguments.end(), {"-s", folder_});
        return RunProgram(arguments);
    }
    ProgramResult Draw() const {
        return Grdx({"draw", "samples", "--borehole", "ZK1", "--sample", "1"});
    }
    void Edit(const std::string& name, const std::string& from, const std::string& to) const {
        std::string text = FileBytes(folder_ / name);
        const std::size_t place = text.find(from);
        ASSERT_NE(place, std::string::npos) << name << " lacks " << from;
        scratch_.Write("suite/" + name, text.replace(place, from.size(), to));
    }
    /// Puts a link in the place of what is there.
    void Plant(const fs::path& name, const fs::path& target) const {
        fs::remove_all(folder_ / name);
        fs::create_directories((folder_ / name).parent_path());
        fs::create_symlink(target, folder_ / name);
    }
    std::vector<std::string> OutsideNames() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(outside_)) {
            names.push_back(entry.path());
        }
        return names;
    }

    ScratchFolder scratch_;
    fs::path folder_ = scratch_.Path() / "suite";
    fs::path outside_ = scratch_.Path() / "outside";
    fs::path configuration_ = scratch_.Path() / "configuration";
    SampleSuite suite_{folder_, 0};
};
}  // namespace

TEST_F(OutsidePlacesTest, NothingOutsideIsUsedThatNobodyHasAgreedTo) {
    const std::string outside = outside_;
    const fs::path charts = "output/2026-017/室内曲线";
    const struct {
        const char* reason;
        std::string listed;
        std::function<void()> lead;
    } rows[] = {
        {"a profile", "MarkProfile: " + outside + "/victim",
         [&] { Edit("suite.ini", "marks.ini", outside + "/victim"); }},
        {"by steps back", "SettingsProfile: " + outside + "/victim",
         [&] { Edit("suite.ini", "settings.ini", R"(..\outside\victim)"); }},
        {"the database", "Database: " + outside + "/other.db",
         [&] { Edit("suite.ini", "project.db", outside + "/other.db"); }},
        {"a server", "Database: Provider=MSDASQL;Server=lab;Pwd=***",
         [&] {
             Edit("suite.ini", "Provider=SQLite;Data Source=project.db",
                  "Provider=MSDASQL;Server=lab;Pwd=secret");
         }},
        {"the registered folder", "RegisteredFolder: " + outside + "/output",
         [&] { Edit("suite.ini", "RegisteredFolder=.", "RegisteredFolder=" + outside); }},
        {"a link at a profile", "ProjectProfile: " + outside + "/project.ini",
         [&] {
             fs::rename(folder_ / "project.ini", outside_ / "project.ini");
             Plant("project.ini", "../outside/project.ini");
         }},
        {"at the database's log", "Database: " + outside + "/log",
         [&] { Plant("project.db-wal", outside + "/log"); }},
        {"at the templates", "Support: " + outside + "/Support",
         [&] { Plant("Support", outside + "/Support"); }},
        {"at the sheets' folder", "output: " + outside, [&] { Plant("output", outside); }},
        {"at a sheet", charts.string() + "/KFZK1-1.dwg: " + outside + "/victim",
         [&] { Plant(charts / "KFZK1-1.dwg", outside + "/victim"); }},
        {"at a sheet, in other letters, to nothing yet",
         charts.string() + "/kfzk1-1.DWG: " + outside + "/new\\x1B[2J",
         [&] { Plant(charts / "kfzk1-1.DWG", outside + "/new\x1B[2J"); }},
    };
    const fs::path sound = scratch_.Path() / "sound";
    fs::copy(folder_, sound, fs::copy_options::recursive);
    for (const auto& row : rows) {
        fs::remove_all(folder_);
        fs::copy(sound, folder_, fs::copy_options::recursive);
        row.lead();
        const auto before = OutsideNames();
        const ProgramResult run = Draw();
        EXPECT_EQ(run.status, 1) << row.reason;
        EXPECT_THAT(run.errors, HasSubstr("\n" + row.listed + "\n")) << row.reason;
        EXPECT_THAT(run.errors, Not(HasSubstr("secret")));
        EXPECT_EQ(scratch_.Read("outside/victim"), kVictim) << row.reason;
        EXPECT_EQ(OutsideNames(), before) << row.reason;
    }
    EXPECT_FALSE(fs::exists(configuration_));
}

TEST_F(OutsidePlacesTest, EveryCallAsksAndAnAgreementHoldsForItsPlaces) {
    const std::string sheet = Draw().output;
    Edit("suite.ini", "marks.ini", (outside_ / "victim").string());
    scratch_.Write("script", "");
    const std::vector<std::vector<std::string>> calls = {
        {"list"},
        {"import", "layers", std::string(GRDX_SAMPLES) + "/layers.csv"},
        {"draw", "layers", "--all"},
        {"script", scratch_.Path("script")},
        {"plot", sheet.substr(0, sheet.find('\n')), "--to", "svg", "-o", scratch_.Path("a.svg")},
    };
    const auto expectAll = [&](int status, const char* reason) {
        for (const auto& call : calls) {
            const ProgramResult run = Grdx(call);
            EXPECT_EQ(run.status, status) << call[0] << " " << reason << ": " << run.errors;
        }
    };
    expectAll(1, "before");
    for (const auto& call : calls) {
        std::vector<std::string> trusting = call;
        trusting.push_back("--trust");
        EXPECT_EQ(Grdx(trusting).status, 0) << call[0];
        expectAll(0, "agreed");
        fs::remove_all(configuration_);
    }
    EXPECT_EQ(Grdx({"list", "--trust"}).status, 0);
    EXPECT_EQ(Draw().status, 0);
    EXPECT_THAT(scratch_.Read("outside/victim"), HasSubstr("KFQX"));
    Edit("suite.ini", "victim", "another");
    expectAll(1, "another place");
    configuration_ = folder_;
    const ProgramResult inside = Grdx({"list", "--trust"});
    EXPECT_EQ(inside.status, 1);
    EXPECT_THAT(inside.errors, HasSubstr("XDG_CONFIG_HOME"));
}

TEST_F(OutsidePlacesTest, AnOrdinaryFolderNeedsNoAgreementAlsoThroughALink) {
    const fs::path real = scratch_.Path() / "real";
    fs::rename(folder_, real);
    fs::create_symlink(real, folder_);
    fs::rename(real / "marks.ini", real / "drawn.ini");
    fs::create_symlink(folder_ / "drawn.ini", real / "marks.ini");
    const ProgramResult run = Draw();
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_THAT(scratch_.Read("real/drawn.ini"), HasSubstr("KFQX"));
}

TEST_F(OutsidePlacesTest, NumbersThatAreNoNamesOfFilesLeadNowhere) {
    for (const char* number : {R"(..\..\esc)", "..", ".", "a/b"}) {
        Edit("project.ini", "GCBH=2026-017", "GCBH=" + std::string(number));
        for (const ProgramResult& run : {Draw(), Grdx({"list"})}) {
            EXPECT_EQ(run.status, 1);
            EXPECT_THAT(run.errors, HasSubstr("project.ini: the project number \"" +
                                              std::string(number) + "\""));
        }
        Edit("project.ini", "GCBH=" + std::string(number), "GCBH=2026-017");
    }
    EXPECT_FALSE(fs::exists(folder_ / "output"));

    fs::create_directories(folder_ / "output/2026-017/室内曲线/KFx");
    suite_.Ask("UPDATE Z_c_KeFenCSXM SET ZKBH='x/../../../../../esc' WHERE ZKBH='ZK1'");
    suite_.Ask("UPDATE Z_c_KeFen SET ZKBH='x/../../../../../esc' WHERE ZKBH='ZK1'");
    const ProgramResult run =
        Grdx({"draw", "samples", "--borehole", "x/../../../../../esc", "--sample", "1"});
    EXPECT_EQ(run.status, 1);
    EXPECT_FALSE(fs::exists(scratch_.Path() / "esc-1.dwg")) << run.output;
}
