#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct zip;
struct zip_file;

namespace lab {

/// One part of a package, unpacked as it is read. Throws Failure when it is broken, or becomes so
/// large, or so much larger than it is packed, that no table can be in it.
class PackagePart {
public:
    /// Appends some bytes; false at the end.
    bool Read(std::string& bytes);
    std::uint64_t Size() const { return size_; }  ///< as the package tells it
    std::uint64_t Done() const { return done_; }

private:
    friend class Package;
    struct Closer {
        void operator()(zip_file* file) const;
    };
    std::string name_;  ///< for messages
    std::unique_ptr<zip_file, Closer> file_;
    std::uint64_t size_ = 0;
    std::uint64_t packed_ = 0;
    std::uint64_t done_ = 0;
};

/// The parts of an .xlsx file. Throws Failure when it is no such package or has a password.
class Package {
public:
    /// `name` is told in messages; the bytes must outlive the object.
    Package(std::string name, std::string_view bytes);

    bool Has(const std::string& part) const;
    /// Failure when there is no such part.
    PackagePart Open(const std::string& part) const;
    /// A small part, whole.
    std::string Content(const std::string& part) const;
    const std::string& Name() const { return name_; }

private:
    struct Closer {
        void operator()(zip* archive) const;
    };
    std::string name_;
    std::unique_ptr<zip, Closer> archive_;
};

}  // namespace lab
