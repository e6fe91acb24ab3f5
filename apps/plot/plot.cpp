#include "apps/plot/plot.h"

#include <QDir>
#include <QTemporaryFile>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <utility>

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

/// Where pages wait for the last one. Remembers a write that failed, which later ones would hide.
class PageFile : public QTemporaryFile {
public:
    /// Whether it has all that was written.
    bool isWhole() { return whole_ && flush(); }

protected:
    qint64 writeData(const char* data, qint64 size) override {
        const qint64 written = QTemporaryFile::writeData(data, size);
        whole_ = whole_ && written == size;
        return written;
    }

private:
    bool whole_ = true;
};

class Plotter {
public:
    explicit Plotter(const Request& request) : request_(request) {}

    /// The drawings on one file, whose path is returned; empty when a drawing was refused.
    std::string plot(const std::vector<std::string>& drawings, const Report& report) {
        const std::string path = outputOf(drawings.front());
        const bool isPlotted = request_.format == Format::kPdf
                                   ? plotPages(drawings, path, report)
                                   : plotPicture(drawings.front(), path, report);
        return isPlotted ? path : std::string();
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

    /// Nothing for a drawing that is refused.
    std::optional<paint::Sheet> tryToRead(const std::string& drawing, const Report& report) {
        std::optional<paint::Sheet> sheet;
        try {
            sheet = read(drawing, report);
        } catch (const Refusal& refusal) {
            report.refused(refusal.what());
        }
        noteFontFaults(report);
        return sheet;
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

    /// Also by another name or through links.
    bool isInput(const std::string& path) const {
        std::error_code missing;
        return std::any_of(request_.drawings.begin(), request_.drawings.end(),
                           [&](const std::string& drawing) {
                               return std::filesystem::equivalent(path, drawing, missing);
                           });
    }

    /// One drawing is in memory at a time, and the pages wait in a file for the last one.
    bool plotPages(const std::vector<std::string>& drawings, const std::string& path,
                   const Report& report) {
        const auto fail = [&](const std::string& reason) {
            throw Refusal(path + ": the pages cannot be kept in " + QDir::tempPath().toStdString() +
                          ": " + reason);
        };
        PageFile file;
        if (!file.open()) {
            fail(file.errorString().toStdString());
        }
        paint::PdfPages pages(painter_, request_.options, file);
        bool complete = true;
        for (const std::string& drawing : drawings) {
            const std::optional<paint::Sheet> sheet = tryToRead(drawing, report);
            complete = complete && sheet;
            if (complete) {
                pages.Add(*sheet);
            }
        }
        if (!complete) {
            return false;
        }
        pages.Finish();
        if (!file.isWhole() || !file.seek(0)) {
            fail("not all of them could be written");
        }
        QByteArray read;
        write(path, [&](std::string_view& piece) {
            constexpr qint64 kPiece = 1 << 16;
            read = file.read(kPiece);
            piece = {read.data(), static_cast<std::size_t>(read.size())};
            return file.error() == QFileDevice::NoError;
        });
        return true;
    }

    bool plotPicture(const std::string& drawing, const std::string& path, const Report& report) {
        const std::optional<paint::Sheet> sheet = tryToRead(drawing, report);
        if (!sheet) {
            return false;
        }
        QByteArray bytes = request_.format == Format::kSvg
                               ? SvgOf(*sheet, painter_, request_.options)
                               : PngOf(*sheet, painter_, request_.options);
        if (bytes.isEmpty()) {
            throw Refusal(path + ": the picture would be too large at this resolution");
        }
        std::string_view rest(bytes.data(), static_cast<std::size_t>(bytes.size()));
        write(path, [&](std::string_view& piece) {
            piece = std::exchange(rest, {});
            return true;
        });
        return true;
    }

    void write(const std::string& path, const win32::ContentSource& content) const {
        if (isInput(path)) {
            throw Refusal(path + ": it is one of the drawings to plot, and they stay as they are");
        }
        std::string error;
        if (!win32::ReplaceFileWhole(path, content, error)) {
            throw Refusal(error);
        }
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
