#include "apps/grdx/DrawProgress.h"

#include <cmath>
#include <cstdio>

#include "apps/grdx/ChartTally.h"

namespace console {

namespace {
std::string TimeText(double seconds) {
    const long whole = std::lround(seconds);
    char text[32];
    std::snprintf(text, sizeof text, "%ld:%02ld", whole / 60, whole % 60);
    return text;
}
}  // namespace

std::string DrawProgress::Text() const {
    std::string text = SheetCount(done_) + " done";
    if (expected_ >= done_) {
        const std::size_t left = expected_ - done_;
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start_;
        const double toGo = spent.count() / static_cast<double>(done_) * static_cast<double>(left);
        text += ", " + std::to_string(left) + " left, " + TimeText(spent.count()) + " so far, " +
                TimeText(toGo) + " to go";
    }
    return text;
}

}  // namespace console
