#pragma once

#include <vector>

#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"
#include "platform/ed/file_search.h"
#include "tests/platform/db/DrawingFixture.h"

/// A drawing, and the picture of it.
class PictureFixture : public DrawingFixture {
protected:
    ~PictureFixture() override { ed::SetSearchFolders({}); }

    /// Draws the picture anew; all its shapes. Their points are asked of `list_`.
    std::vector<picture::Shape> shapes() {
        list_ = picture::PictureOf(database_, fonts_);
        std::vector<picture::Shape> all;
        for (const picture::Item& item : list_.items()) {
            const auto own = list_.shapes(item);
            all.insert(all.end(), own.begin(), own.end());
        }
        return all;
    }

    picture::FontLibrary fonts_;
    picture::DisplayList list_;
};
