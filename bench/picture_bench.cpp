// What the drawing view repeats: a sheet told as shapes, and redrawn while it is panned.
// usage: bench_picture SHEET.dwg [benchmark options]

#include <benchmark/benchmark.h>
#include <QGuiApplication>
#include <QImage>

#include <cstdio>
#include <memory>

#include "apps/paint/PicturePainter.h"
#include "host/Host.h"
#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/win32/windows_path.h"

namespace {

std::unique_ptr<AcDbDatabase> sheet;

void TellShapes(benchmark::State& state) {
    picture::FontLibrary fonts;
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(picture::PictureOf(*sheet, fonts));
    }
}

/// Redraws 1920 x 1080 pixels, the sheet `range(0)` times as high as the window, every frame some
/// pixels on.
void RedrawWhilePanning(benchmark::State& state) {
    picture::FontLibrary fonts;
    const picture::DisplayList list = picture::PictureOf(*sheet, fonts);
    paint::PicturePainter pictures;
    paint::Look look;
    look.background = picture::Background::kDark;
    const QRectF window(0, 0, 1920, 1080);
    QImage image(window.size().toSize(), QImage::Format_RGB32);
    const auto zoom = static_cast<double>(state.range(0));
    const QTransform whole = paint::FitTransform(list.box(), window) *
                             QTransform::fromTranslate(-960, -540) *
                             QTransform::fromScale(zoom, zoom);
    int frame = 0;
    while (state.KeepRunning()) {
        ++frame;
        const QTransform map =
            whole * QTransform::fromTranslate(960 + frame % 40 * 3.3, 540 + frame % 30 * 1.7);
        image.fill(Qt::black);
        QPainter painter(&image);
        pictures.paint(painter, list, map, paint::ViewOf(map, window), look);
    }
}

BENCHMARK(TellShapes)->Unit(benchmark::kMillisecond);
BENCHMARK(RedrawWhilePanning)->Arg(1)->Arg(3)->Arg(20)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    host::Host program;
    std::string error;
    std::string path;
    sheet = std::make_unique<AcDbDatabase>(false, true);
    if (argc != 2 || !program.LoadModule(host::Host::FindModule("grdx.arx", error), error) ||
        !win32::WindowsPath(argv[1], path) || sheet->readDwgFile(path.c_str()) != Acad::eOk) {
        std::fprintf(stderr, "usage: bench_picture SHEET.dwg %s\n", error.c_str());
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    sheet.reset();
    return 0;
}
