#include "src/db/table_filters.h"

#include <algorithm>
#include <initializer_list>

namespace {

bool IsKey(const std::string& text) {
    return text.find('\'') == std::string::npos;
}

/// A literal that nothing closes, since every quote in it is doubled; the database's complaint
/// shows the text that was wrong.
std::string OpenLiteral(const std::string& text) {
    std::string literal = "'";
    for (const char c : text) literal.append(c == '\'' ? 2 : 1, c);
    return literal;
}

std::string Project(int projectIndex) {
    return "GCSY= " + std::to_string(projectIndex);
}

/// The filter from its parts, unless one of the keys cannot stand in it.
std::string KeyedFilter(std::initializer_list<std::string> keys, const std::string& filter) {
    const auto wrong = std::find_if_not(keys.begin(), keys.end(), IsKey);
    return wrong == keys.end() ? filter : OpenLiteral(*wrong);
}

}  // namespace

std::string SampleFilter(int projectIndex, const std::string& borehole, const std::string& sample) {
    return KeyedFilter({borehole, sample}, Project(projectIndex) + " and ZKBH='" + borehole +
                                               "' and QYBH='" + sample + "'");
}

std::string SampleItemsFilter(int projectIndex, const std::string& borehole,
                              const std::string& sample) {
    return SampleFilter(projectIndex, borehole, sample) + " ORDER BY XH";
}

std::string ProjectItemsFilter(int projectIndex) {
    return Project(projectIndex) + " ORDER BY ZKBH,QYBH,XH";
}

std::string OverlongItemsFilter(int projectIndex, const std::string& column, std::size_t length) {
    return Project(projectIndex) + " and " + column + " LIKE '" + std::string(length + 1, '_') +
           "%' ORDER BY ZKBH,QYBH,XH";
}

std::string BoreholeItemsFilter(int projectIndex, const std::string& borehole) {
    return KeyedFilter({borehole},
                       Project(projectIndex) + " and ZKBH='" + borehole + "' ORDER BY QYBH,XH");
}

std::string BoreholesItemsFilter(int projectIndex, const std::string& prefix) {
    return KeyedFilter(
        {prefix}, Project(projectIndex) + " and ZKBH LIKE '" + prefix + "%' ORDER BY ZKBH,QYBH,XH");
}

std::string LayersWithFractionsFilter(int projectIndex) {
    return "GCSY = " + std::to_string(projectIndex) +
           " and (CSLX = 1105 OR CSLX = 1106 OR CSLX = 1108 OR CSLX = 1109) ORDER BY ZCBH,YCBH";
}

std::string LayerFilter(int projectIndex, int mainLayer, int subLayer) {
    return Project(projectIndex) + " and ZCBH = " + std::to_string(mainLayer) +
           " and YCBH = " + std::to_string(subLayer);
}

std::string ProjectFilter(int projectIndex) {
    return "GCSY = " + std::to_string(projectIndex);
}
