// What the chart commands refuse is what the check finds errors in, for many samples by chance.

#include <map>
#include <random>

#include "lab/checks/project_check.h"
#include "src/chart/chart_curve.h"
#include "src/ui/sample_lists.h"
#include "src/ui/sample_objections.h"
#include "tests/src/ui/ProjectFixture.h"

namespace {

class RefusedSamplesTest : public ProjectFixture {
protected:
    /// Now and then one of the faults, in the form of statements.
    std::string Faulty(const std::string& value, const std::vector<std::string>& faults) {
        return random_() % 25 == 0 ? faults[random_() % faults.size()] : value;
    }

    void MakeSamples(int count) {
        static const char* const kSizes[] = {"20", "5", "2", "0.5", "0.25", "0.075", "0.01", "0"};
        std::string sql = "BEGIN; DELETE FROM Z_c_KeFen; DELETE FROM Z_c_KeFenCSXM;";
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i / 5);
            const std::string key =
                "1," + Faulty("'B" + number + "'", {"'B/'", "'*B1'", "'b2'", "'B'", "'B1-1'"}) +
                ",'" +
                Faulty(std::to_string(i % 5 + 1),
                       {"=", "1234567890123", "123456789012", "", " 1", "1-2", "*2"}) +
                "',";
            int total = 0;
            for (int item = 0; item < 8; ++item) {
                const int mass = static_cast<int>(random_() % 90);
                total += mass;
                sql += "INSERT INTO Z_c_KeFenCSXM VALUES(" + key + std::to_string(item) + "," +
                       Faulty(kSizes[item], {"NULL", "-1", "1e400", "2"}) + "," +
                       Faulty(std::to_string(mass), {"NULL", "0"}) + ");";
            }
            const std::string exact = std::to_string(total);
            sql += "INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLTYZL) VALUES(" + key +
                   Faulty(exact, {"NULL", "0", "-1", "'ten'", "''", exact + "-0.000009",
                                  exact + "-0.1", exact + "+5"}) +
                   ");";
        }
        Sql(sql + "COMMIT;");
    }

    static bool IsRefused(const SampleKey& key, const std::vector<SampleKey>& offered) {
        CurrentBorehole = key.borehole;
        CurrentSample = key.sample;
        ChartData data;
        return std::find(offered.begin(), offered.end(), key) == offered.end() ||
               !ObjectionToSamples(key.borehole, {key.sample}, offered).empty() ||
               !LoadChartData(RecordKind::sample, data);
    }

private:
    std::mt19937 random_{4};
};

TEST_F(RefusedSamplesTest, AreThoseWithErrors) {
    ProjectContext = {1, "GC1", 0, ""};
    Sql("CREATE INDEX items ON Z_c_KeFenCSXM(ZKBH,QYBH); CREATE INDEX rows ON "
        "Z_c_KeFen(ZKBH,QYBH)");
    std::map<bool, int> samples;
    for (int round = 0; round < 100; ++round) {
        MakeSamples(105);
        std::vector<SampleKey> offered;
        ASSERT_TRUE(ReadProjectSamples(offered));
        const lab::ProjectData data = lab::ReadProjectData();
        const auto findings = lab::FindingsBySample(lab::CheckProject(data, {}));
        for (const lab::ProjectSample& sample : data.samples) {
            const lab::Sample& key = sample.stored.data;
            const auto found = findings.find({key.borehole, key.sample});
            const bool hasError = found != findings.end() && lab::HasError(found->second);
            ASSERT_EQ(IsRefused({Gbk(key.borehole), Gbk(key.sample)}, offered), hasError)
                << key.borehole << ' ' << key.sample << ' ' << testing::PrintToString(Boxes());
            ++samples[hasError];
        }
    }
    EXPECT_GT(samples[true], 3000);
    EXPECT_GT(samples[false], 3000);
}

}  // namespace
