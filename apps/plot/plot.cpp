#include "apps/plot/plot.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/DrawingDamage.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace plot {

namespace {

/// A drawing or a file that stands against the plot, with the reason (UTF-8).
struct Refusal : std::runtime_error {
    using std::runtime_error::runtime_error;
};

const char* EndingOf(Format format) {
    switch (format) {
        case Format::kPdf:
            return "pdf";
        case Format::kSvg:
            return "svg";
        case Format::kPng:
            break;
    }
    return "png";
}

class Plotter {
public:
    explicit Plotter(const Request& request) : request_(request) {}

    /// The drawings on one file, whose path is returned.
    std::string plot(const std::vector<std::string>& drawings, const Report& report) {
        std::vector<paint::Sheet> sheets;
        bool complete = true;
        for (const std::string& drawing : drawings) {
            try {
                sheets.push_back(read(drawing, report));
            } catch (const Refusal& refusal) {
                report.refused(refusal.what());
                complete = false;
            }
            noteFontFaults(report);
        }
        return complete ? write(sheets, outputOf(drawings.front())) : std::string();
    }

    /// True when a page plotted so far lacks something that its drawing should have.
    bool lacking() const { return lacking_; }

private:
    paint::Sheet read(const std::string& drawing, const Report& report) {
        std::string windowsPath;
        if (!win32::WindowsPath(drawing, windowsPath)) {
            throw Refusal(drawing + ": the path has a character that GBK does not have");
        }
        AcDbDatabase database(false, true);
        if (database.readDwgFile(windowsPath.c_str()) != Acad::eOk) {
            throw Refusal(database.lastFileError());
        }
        for (const std::string& line : database.damage().report()) {
            report.noted(line);
        }
        picture::DisplayList picture = picture::PictureOf(database, fonts_);
        if (!picture.isWhole()) {
            report.noted(
                drawing +
                ": the blocks and patterns make more than can be drawn, a part is missing");
        }
        lacking_ = lacking_ || !database.damage().empty() || !picture.isWhole();
        const std::string title = std::filesystem::path(drawing).stem().string();
        return {QString::fromStdString(title), std::move(picture)};
    }

    void noteFontFaults(const Report& report) {
        for (const std::string& fault : fonts_.takeFaults()) {
            report.noted(fault);
            lacking_ = true;
        }
    }

    std::string outputOf(const std::string& drawing) const {
        return request_.output.empty() ? std::filesystem::path(drawing)
                                             .replace_extension(EndingOf(request_.format))
                                             .string()
                                       : request_.output;
    }

    QByteArray bytesOf(const std::vector<paint::Sheet>& sheets) {
        switch (request_.format) {
            case Format::kPdf: {
                paint::PdfPages pages(painter_, request_.options);
                std::for_each(sheets.begin(), sheets.end(),
                              [&](const paint::Sheet& sheet) { pages.Add(sheet); });
                return pages.Finish();
            }
            case Format::kSvg:
                return SvgOf(sheets.front(), painter_, request_.options);
            case Format::kPng:
                break;
        }
        return PngOf(sheets.front(), painter_, request_.options);
    }

    /// Also by another name or through links.
    bool isInput(const std::string& path) const {
        std::error_code missing;
        return std::any_of(request_.drawings.begin(), request_.drawings.end(),
                           [&](const std::string& drawing) {
                               return std::filesystem::equivalent(path, drawing, missing);
                           });
    }

    std::string write(const std::vector<paint::Sheet>& sheets, const std::string& path) {
        if (isInput(path)) {
            throw Refusal(path + ": it is one of the drawings to plot, and they stay as they are");
        }
        const QByteArray bytes = bytesOf(sheets);
        if (bytes.isEmpty()) {
            throw Refusal(path + ": the picture would be too large at this resolution");
        }
        std::string error;
        if (!win32::ReplaceFileWhole(path, {bytes.data(), static_cast<std::size_t>(bytes.size())},
                                     error)) {
            throw Refusal(error);
        }
        return path;
    }

    const Request& request_;
    bool lacking_ = false;
    picture::FontLibrary fonts_;
    paint::PicturePainter painter_;
};

}  // namespace

bool Plot(const Request& request, const Report& report) {
    std::vector<std::vector<std::string>> files;
    if (request.output.empty()) {
        for (const std::string& drawing : request.drawings) {
            files.push_back({drawing});
        }
    } else {
        files.push_back(request.drawings);
    }
    Plotter plotter(request);
    bool good = true;
    for (const std::vector<std::string>& drawings : files) {
        try {
            const std::string path = plotter.plot(drawings, report);
            good = good && !path.empty();
            if (!path.empty()) {
                report.written(path);
            }
        } catch (const Refusal& refusal) {
            report.refused(refusal.what());
            good = false;
        }
    }
    return good && !plotter.lacking();
}

}  // namespace plot
