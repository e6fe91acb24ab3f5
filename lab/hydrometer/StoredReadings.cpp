#include "lab/hydrometer/StoredReadings.h"

#include <algorithm>
#include <cmath>

#include "lab/project_schema.h"

namespace lab {

namespace {
constexpr const char* kTable = "Z_c_KeFenMDJ";
constexpr const char* kColumns =
    "ZKBH, QYBH, MDJLX, GTZL, TLBZ, SJ, DS, WD, WYMXZ, FSJXZ, CJ0, CJXS, KLLJ, XYBFS, SFJR, JFTY";

HydrometerType TypeOf(const std::string& text) {
    return text == HydrometerName(HydrometerType::kB)      ? HydrometerType::kB
           : text == HydrometerName(HydrometerType::k152H) ? HydrometerType::k152H
                                                           : HydrometerType::kA;
}
}  // namespace

bool StoredTest::Made(double size) const {
    return std::any_of(points.begin(), points.end(), [&](const HydrometerPoint& point) {
        return point.joined && point.size == size;
    });
}

bool StoredTest::IsJoined() const {
    return std::any_of(points.begin(), points.end(),
                       [](const HydrometerPoint& point) { return point.joined; });
}

StoredReadings::StoredReadings(oledb::SqlDatabase& database, int projectIndex)
    : database_(database),
      projectIndex_(projectIndex),
      hasTable_(!database.Columns(kTable).empty()) {}

std::map<std::pair<std::string, std::string>, StoredTest> StoredReadings::Read(
    const std::string* borehole) {
    std::map<std::pair<std::string, std::string>, StoredTest> tests;
    if (!hasTable_) {
        return tests;
    }
    oledb::SqlStatement rows(
        database_, std::string("SELECT ") + kColumns + " FROM " + kTable + " WHERE GCSY = ?" +
                       (borehole != nullptr ? " AND ZKBH = ?" : "") + " ORDER BY ZKBH, QYBH, XH");
    rows.Bind(1, projectIndex_);
    if (borehole != nullptr) {
        rows.Bind(2, *borehole);
    }
    while (rows.Step()) {
        const auto number = [&](int column) { return rows.Number(column).value_or(0.0); };
        StoredTest& stored = tests[{rows.Text(0), rows.Text(1)}];
        stored.test.borehole = rows.Text(0);
        stored.test.sample = rows.Text(1);
        stored.test.type = TypeOf(rows.Text(2));
        stored.test.dryMass = number(3);
        stored.test.gravity = number(4);
        stored.test.readings.push_back(
            {number(5), number(6), number(7), number(8), number(9), {number(10), number(11)}});
        stored.points.push_back({number(12), number(13), rows.Integer(14) != 0});
        stored.jump = rows.Number(15);
    }
    return tests;
}

void StoredReadings::MakeTable() {
    if (!hasTable_) {
        MakeProjectTable(database_, kTable);
        hasTable_ = true;
    }
}

void StoredReadings::Write(const StoredTest& stored) {
    MakeTable();
    const HydrometerTest& test = stored.test;
    oledb::SqlStatement remove(
        database_, std::string("DELETE FROM ") + kTable + " WHERE GCSY=? AND ZKBH=? AND QYBH=?");
    remove.Bind(1, projectIndex_);
    remove.Bind(2, test.borehole);
    remove.Bind(3, test.sample);
    remove.Run();
    oledb::SqlStatement insert(database_, std::string("INSERT INTO ") + kTable + " (" + kColumns +
                                              ", GCSY, XH) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                                              "?, ?, ?, ?, ?, ?, ?, ?)");
    for (std::size_t i = 0; i < test.readings.size(); ++i) {
        const HydrometerReading& reading = test.readings[i];
        const HydrometerPoint& point = stored.points[i];
        insert.Bind(1, test.borehole);
        insert.Bind(2, test.sample);
        insert.Bind(3, HydrometerName(test.type));
        const double numbers[] = {test.dryMass,       test.gravity,         reading.minutes,
                                  reading.reading,    reading.celsius,      reading.meniscus,
                                  reading.dispersant, reading.depth.atZero, reading.depth.perUnit,
                                  point.size,         point.finer};
        int parameter = 4;
        for (const double number : numbers) {
            insert.Bind(parameter++, number);
        }
        insert.Bind(parameter++, point.joined ? 1 : 0);
        insert.Bind(parameter++, stored.jump);
        insert.Bind(parameter++, projectIndex_);
        insert.Bind(parameter, static_cast<int>(i + 1));
        insert.Run();
    }
}

}  // namespace lab
