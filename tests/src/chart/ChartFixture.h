#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "src/chart/CDrawTools.h"
#include "src/entity/CKFCurve.h"
#include "tests/Golden.h"
#include "tests/platform/db/RecordingWorldDraw.h"
#include "tests/src/RecordedMessages.h"
#include "tests/src/TestProject.h"
#include "tests/src/chart/SheetDump.h"

/// A project, a sheet to draw on, and what the user is told.
class ChartFixture : public testing::Test {
protected:
    void SetUp() override { CKFCurve::rxInit(); }
    void TearDown() override { CKFCurve::rxRemove(); }

    std::vector<std::string> Drawn() { return Dump(sheet_); }
    /// Those of the drawn entities whose description starts so, in order.
    std::vector<std::string> Drawn(const std::string& start) {
        std::vector<std::string> lines = Drawn();
        std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(start); });
        return lines;
    }
    std::size_t CountDrawn(const std::string& start) { return Drawn(start).size(); }
    /// Compares the sheet, and the labels of its curve, with the text of that name.
    void ExpectDrawn(const std::string& golden) {
        std::vector<std::string> lines = Drawn();
        const std::vector<std::string> labels = CurveLabels();
        lines.insert(lines.end(), labels.begin(), labels.end());
        ExpectGolden(std::string(GRDX_CHART_GOLDENS) + "/" + golden + ".txt", lines);
    }

    /// What the sheet's last entity, a curve, draws as labels.
    std::vector<std::string> CurveLabels() {
        RecordingWorldDraw draw;
        VisitModelSpace(sheet_, [&draw](AcDbEntity& entity) {
            if (auto* curve = dynamic_cast<CKFCurve*>(&entity)) {
                curve->worldDraw(&draw);
            }
        });
        std::vector<std::string> labels = draw.lines();
        std::erase_if(labels, [](const std::string& line) {
            return line.find("text ") == std::string::npos;
        });
        return labels;
    }

    TestProject project_;
    RecordedMessages messages_;
    CDrawTools tools_;
    AcDbDatabase sheet_;
};

/// Straight on the size axis from 20 mm at 100 % to 0.02 mm at 0 %.
inline std::vector<TestProject::Item> StraightItems() {
    return {{20, 0}, {2, 100}, {0.2, 100}, {0.02, 100}};
}
