#pragma once

class AcDbDatabase;

/// What the drawing database asks of its host.
class AcDbHostApplicationServices {
public:
    /// Database of the current document; null when there is none.
    AcDbDatabase* workingDatabase() const { return working_; }
    void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }

private:
    AcDbDatabase* working_ = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
