// How long the desktop program takes from its start to the first paint, to open and show sheets,
// and to take a dragged grip back. usage: bench_desk SUITE SHEET.dwg...

#include <time.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <fstream>
#include <string>

#include "apps/desk/DrawingView.h"
#include "apps/desk/MainWindow.h"
#include "apps/desk/application.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbObject.h"
#include "platform/db/AcDbStub.h"

namespace {

/// Milliseconds since the system began this process, loading of libraries included.
double MillisecondsOfProcess() {
    constexpr int kStartField = 22;
    std::ifstream file("/proc/self/stat");
    std::string field;
    for (int i = 0; i < kStartField; ++i) {
        file >> field;
    }
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const double started = std::stod(field) / static_cast<double>(sysconf(_SC_CLK_TCK));
    return (static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9 - started) *
           1000.0;
}

std::string CurveOf(AcDbDatabase& drawing) {
    char pick[24] = "";
    for (const AcDbStub& stub : drawing.entries()) {
        if (stub.object != nullptr && std::string_view(stub.object->isA()->name()) == "CKFCurve") {
            std::snprintf(pick, sizeof pick, "#%llX", static_cast<unsigned long long>(stub.handle));
        }
    }
    return pick;
}

/// Mean of many, each from the key to the drawing as it was.
double MillisecondsOfUndo(desk::MainWindow& window) {
    constexpr int kTimes = 50;
    const std::string curve = CurveOf(*acDocManager->curDocument()->database());
    QElapsedTimer timer;
    qint64 taken = 0;
    for (int i = 0; i < kTimes; ++i) {
        window.RunCommand(QString::fromStdString("GRIP " + curve + " 3 0,-0.1"));
        window.View().repaint();
        timer.start();
        window.UndoAction()->trigger();
        window.View().repaint();
        taken += timer.nsecsElapsed();
    }
    return static_cast<double>(taken) / 1e6 / kTimes;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    desk::SetUpApplication();
    desk::DeskSession session;
    std::string error;
    if (argc < 3 || !session.Start(argv[1], error)) {
        std::fprintf(stderr, "usage: bench_desk SUITE SHEET.dwg... %s\n", error.c_str());
        return 2;
    }
    desk::MainWindow window(session);
    window.resize(1920, 1080);
    window.show();
    QCoreApplication::processEvents();
    window.View().repaint();
    std::printf("desktop program from its start to the first paint: %.0f ms\n",
                MillisecondsOfProcess());

    window.RunCommand(QStringLiteral("SDI 0"));
    const QStringList sheets = QCoreApplication::arguments().mid(2);
    QElapsedTimer timer;
    timer.start();
    for (const QString& sheet : sheets) {
        window.OpenDrawings({sheet});
        window.View().repaint();
    }
    std::printf(
        "a sheet opened and shown: %.1f ms (mean of %d)\n",
        static_cast<double>(timer.nsecsElapsed()) / 1e6 / static_cast<double>(sheets.size()),
        static_cast<int>(sheets.size()));
    std::printf("a dragged grip taken back and shown: %.1f ms\n", MillisecondsOfUndo(window));
    return 0;
}
