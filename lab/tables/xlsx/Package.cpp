#include "lab/tables/xlsx/Package.h"

#include <zip.h>

#include <utility>

#include "lab/Failure.h"

namespace lab {

namespace {
/// The rows of the largest sheet that a spreadsheet can have take less.
constexpr std::uint64_t kLargestPart = std::uint64_t{1} << 30U;
/// A sheet of nothing but equal cells is packed to about a hundredth.
constexpr std::uint64_t kGreatestRatio = 300;
constexpr std::uint64_t kSmallPart = 4 << 20;  ///< whose ratio does not matter
constexpr std::uint64_t kLargestWholePart = 16 << 20;
}  // namespace

void PackagePart::Closer::operator()(zip_file* file) const {
    zip_fclose(file);
}

bool PackagePart::Read(std::string& bytes) {
    constexpr std::size_t kBlock = 65536;
    const std::size_t before = bytes.size();
    bytes.resize(before + kBlock);
    const zip_int64_t got = zip_fread(file_.get(), bytes.data() + before, kBlock);
    if (got < 0) {
        throw Failure(name_ + ": the file is broken");
    }
    bytes.resize(before + static_cast<std::size_t>(got));
    done_ += static_cast<std::uint64_t>(got);
    if (done_ > kLargestPart || (done_ > kSmallPart && done_ / kGreatestRatio > packed_)) {
        throw Failure(name_ + ": unpacks to far more than a table can be");
    }
    return got > 0;
}

void Package::Closer::operator()(zip* archive) const {
    zip_discard(archive);
}

Package::Package(std::string name, std::string_view bytes) : name_(std::move(name)) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
    archive_.reset(source != nullptr ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr);
    if (!archive_ && source != nullptr) {
        zip_source_free(source);
    }
    zip_error_fini(&error);
    if (!archive_) {
        throw Failure(name_ + ": the file is broken: it begins like a workbook, but is none");
    }
}

bool Package::Has(const std::string& part) const {
    return zip_name_locate(archive_.get(), part.c_str(), ZIP_FL_NOCASE) >= 0;
}

PackagePart Package::Open(const std::string& part) const {
    PackagePart opened;
    opened.name_ = name_;
    zip_stat_t stat;
    zip_stat_init(&stat);
    const zip_int64_t index = zip_name_locate(archive_.get(), part.c_str(), ZIP_FL_NOCASE);
    if (index < 0 ||
        zip_stat_index(archive_.get(), static_cast<zip_uint64_t>(index), 0, &stat) != 0) {
        throw Failure(name_ + ": no workbook: there is no part " + part);
    }
    if ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && stat.encryption_method != ZIP_EM_NONE) {
        throw Failure(name_ + ": a workbook with a password");
    }
    opened.file_.reset(zip_fopen_index(archive_.get(), static_cast<zip_uint64_t>(index), 0));
    if (!opened.file_) {
        throw Failure(name_ + ": the file is broken: part " + part + " cannot be unpacked");
    }
    opened.size_ = stat.size;
    opened.packed_ = stat.comp_size;
    return opened;
}

std::string Package::Content(const std::string& part) const {
    PackagePart opened = Open(part);
    std::string content;
    while (opened.Read(content)) {
        if (content.size() > kLargestWholePart) {
            throw Failure(name_ + ": part " + part + " is larger than a workbook's can be");
        }
    }
    return content;
}

}  // namespace lab
