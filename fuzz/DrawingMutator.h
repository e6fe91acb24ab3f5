#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

/// Changes a drawing file so that the change gets past the file's check sums.
class DrawingMutator {
public:
    /// Changes bytes in place and answers how many there are then, at most `most`.
    using Change = std::size_t (*)(std::uint8_t* bytes, std::size_t count, std::size_t most);

    DrawingMutator(std::string file, Change change, unsigned seed);

    /// One change: anywhere, in a section, or in an object, which may also grow, shrink, or refer
    /// to another one. Most times all check sums are made right again, seldom they stay as they
    /// are.
    void mutate(std::size_t most);
    const std::string& file() const { return file_; }

private:
    /// Bytes with a check sum behind them.
    struct Span {
        std::size_t start = 0;  ///< where the check sum starts to count
        std::size_t content = 0;
        std::size_t end = 0;  ///< where the check sum stands
        bool isObject = false;
        bool highByteFirst = false;
    };

    void findSpans();
    void findHeadAndSections();
    void findObjects();
    void findSecondHeader();
    void mutateAnywhere(std::size_t most);
    void mutateWithin(const Span& span);
    void mutateBits(const Span& span);
    void redirectReference(const Span& span);
    void resizeObject(const Span& span, std::size_t most);
    void shiftAddresses(std::size_t from, std::ptrdiff_t by);
    void repairChecksums();
    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string file_;
    Change change_;
    std::minstd_rand random_;
    std::vector<Span> spans_;
};
