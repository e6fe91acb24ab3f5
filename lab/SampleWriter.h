#pragma once

#include "lab/stored_samples.h"

namespace lab {

/// Writes samples of one project, with statements that are prepared once.
class SampleWriter {
public:
    SampleWriter(oledb::SqlDatabase& database, int projectIndex);

    /// Writes everything that was measured in place of what is stored; results become null.
    void Write(const Sample& sample, bool hasSampleRow, bool hasResultRow);

private:
    void BindKey(oledb::SqlStatement& statement, int first, const Sample& sample) const;

    int projectIndex_;
    oledb::SqlStatement insertPlace_;
    oledb::SqlStatement updatePlace_;
    oledb::SqlStatement insertResult_;
    oledb::SqlStatement updateResult_;
    oledb::SqlStatement deleteItems_;
    oledb::SqlStatement insertItem_;
};

}  // namespace lab
