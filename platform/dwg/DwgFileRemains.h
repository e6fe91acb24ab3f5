#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/dwg/DwgClassTable.h"
#include "platform/dwg/file_layout.h"

/// What a drawing that was read keeps of its file, to save it without a loss.
struct DwgFileRemains {
    /// A section of a number that has no meaning here.
    struct Section {
        std::uint8_t number = 0;
        std::string bytes;
    };

    std::string file;  ///< the whole file; AcDbStub::filePosition counts in it
    dwg::WriterNumbers writer;
    std::string auxiliaryHeader;        ///< empty for none
    std::string preview;                ///< between its sentinels
    std::uint32_t previewPosition = 0;  ///< in the file; the preview has addresses of its pictures
    std::string templateName;           ///< the template's description
    std::vector<DwgClassTable::ClassPtr> classes;
    std::string classesContent;  ///< the same as the section has them
    std::vector<Section> unknownSections;
};
