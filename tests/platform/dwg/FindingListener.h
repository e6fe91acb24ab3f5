#pragma once

#include <string>
#include <vector>

#include "platform/db/AcRxEventReactor.h"

/// Hears what was missing of inserted drawings.
struct FindingListener : AcRxEventReactor {
    FindingListener() { acrxAddEventReactor(this); }
    ~FindingListener() override { acrxRemoveEventReactor(this); }
    FindingListener(const FindingListener&) = delete;
    FindingListener& operator=(const FindingListener&) = delete;
    void insertIncomplete(AcDbDatabase* /*target*/, const std::string& finding) override {
        heard.push_back(finding);
    }
    std::vector<std::string> heard;
};
