#include "src/core/sort_keys.h"

#include <memory>
#include <new>
#include <utility>

#include "platform/ed/command_line.h"
#include "src/core/gbk_text.h"

namespace {

constexpr int kStackEntries = 999;  // NSTACK; every pushed part takes two
constexpr int kInsertionSpan = 7;   // parts with a smaller span are finished by insertion

// A quicksort of its own instead of std::sort: samples with equal keys come in the order in which
// it leaves them, and which two share a sheet depends on that order. Any other sort, a stable one
// too, would pair up some projects' samples anew and make other sheets than they have.

/// A part of the array, both ends included.
struct Part {
    int left;
    int right;
    int Span() const { return right - left; }
};

class KeySorter {
public:
    KeySorter(int* keys, std::string* strings, int* stack)
        : keys_(keys), strings_(strings), stack_(stack) {}

    void Sort(Part whole) {
        Part part = whole;
        for (;;) {
            if (part.Span() < kInsertionSpan) {
                InsertionSort(part);
                if (used_ == 0) {
                    return;
                }
                part = Pop();
                continue;
            }
            const auto [lower, upper] = Partition(part);
            const bool upperIsLarger = upper.Span() >= lower.Span();
            if (!Push(upperIsLarger ? upper : lower)) {
                return;
            }
            part = upperIsLarger ? lower : upper;
        }
    }

private:
    void InsertionSort(Part part) {
        for (int j = part.left + 1; j <= part.right; ++j) {
            const int key = keys_[j];
            std::string string = std::move(strings_[j]);
            int i = j - 1;
            for (; i >= 1 && keys_[i] > key; --i) {
                keys_[i + 1] = keys_[i];
                strings_[i + 1] = std::move(strings_[i]);
            }
            keys_[i + 1] = key;
            strings_[i + 1] = std::move(string);
        }
    }

    /// Splits at the median of the first, middle and last item, which comes to its final place.
    std::pair<Part, Part> Partition(Part part) {
        const auto [l, r] = part;
        Exchange((l + r) / 2, l + 1);
        ExchangeUnlessOrdered(l + 1, r);
        ExchangeUnlessOrdered(l, r);
        ExchangeUnlessOrdered(l + 1, l);  // now key[l+1] <= key[l] <= key[r]
        const int pivot = keys_[l];
        int i = l + 1;
        int j = r;
        for (;;) {
            do {
                ++i;
            } while (keys_[i] < pivot);
            do {
                --j;
            } while (keys_[j] > pivot);
            if (j < i) {
                break;
            }
            Exchange(i, j);
        }
        Exchange(l, j);
        return {{l, j - 1}, {i, r}};
    }

    void Exchange(int a, int b) {
        std::swap(keys_[a], keys_[b]);
        strings_[a].swap(strings_[b]);
    }
    void ExchangeUnlessOrdered(int low, int high) {
        if (keys_[low] > keys_[high]) {
            Exchange(low, high);
        }
    }

    bool Push(Part part) {
        if (used_ + 2 > kStackEntries) {
            acutPrintf("%s", "\n排序NSTACK太小!"_gbk);
            return false;
        }
        stack_[used_++] = part.left;
        stack_[used_++] = part.right;
        return true;
    }
    Part Pop() {
        used_ -= 2;
        return {stack_[used_], stack_[used_ + 1]};
    }

    int* keys_;
    std::string* strings_;
    int* stack_;
    int used_ = 0;
};

}  // namespace

void SortKeysWithStrings(int count, int* keys, std::string* strings) {
    const std::unique_ptr<int[]> stack(new (std::nothrow) int[kStackEntries]);
    if (!stack) {
        acutPrintf("%s", "错误!"_gbk);
        return;
    }
    KeySorter(keys, strings, stack.get()).Sort({1, count});
}
