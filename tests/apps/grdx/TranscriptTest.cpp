// What users type, and what the programs answer.

#include <gtest/gtest.h>

#include <fstream>

#include "tests/Golden.h"
#include "tests/apps/grdx/Transcript.h"
#include "tests/system/Program.h"

namespace {

class TranscriptTest : public testing::TestWithParam<Transcript> {};

std::string NameOf(const testing::TestParamInfo<Transcript>& info) {
    std::string name = info.param.file.stem().string() + "_";
    for (const char c : info.param.title) {
        name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    }
    return name;
}

TEST_P(TranscriptTest, AnswersAsWritten) {
    const Transcript& written = GetParam();
    const std::string actual = written.Run();
    if (!AcceptsGoldens()) {
        EXPECT_EQ(actual, written.text) << written.file;
        return;
    }
    std::string all = FileBytes(written.file);
    const std::size_t place = all.find(written.text);
    ASSERT_NE(place, std::string::npos) << written.file;
    std::ofstream(written.file) << all.replace(place, written.text.size(), actual);
}

INSTANTIATE_TEST_SUITE_P(Console, TranscriptTest,
                         testing::ValuesIn(ReadTranscripts(GRDX_TRANSCRIPTS)), NameOf);

}  // namespace
