#include "platform/db/AcRxEventReactor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// Notes what it hears; may remove another reactor when a save is complete.
class Listener : public AcRxEventReactor {
public:
    explicit Listener(std::vector<std::string>& heard, std::string name)
        : heard_(heard), name_(std::move(name)) {
        acrxAddEventReactor(this);
    }
    ~Listener() override { acrxRemoveEventReactor(this); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    void saveComplete(AcDbDatabase*, const char* path) override {
        heard_.push_back(name_ + " saved " + path);
        acrxRemoveEventReactor(removes);
    }
    void abortSave(AcDbDatabase*) override { heard_.push_back(name_ + " not saved"); }

    AcRxEventReactor* removes = nullptr;

private:
    std::vector<std::string>& heard_;
    std::string name_;
};

TEST(AcRxEventReactorTest, ReactorsHearInOrderUntilRemoved) {
    std::vector<std::string> heard;
    Listener first(heard, "first");
    Listener second(heard, "second");
    acrxAddEventReactor(&first);
    acrxAddEventReactor(nullptr);
    acrxTellAbortSave(nullptr);
    acrxTellAbortRead(nullptr);
    EXPECT_THAT(heard, testing::ElementsAre("first not saved", "second not saved"));

    heard.clear();
    first.removes = &second;
    acrxTellSaveComplete(nullptr, "a.dwg");
    first.removes = &first;
    acrxTellSaveComplete(nullptr, "b.dwg");
    acrxTellSaveComplete(nullptr, "c.dwg");
    EXPECT_THAT(heard, testing::ElementsAre("first saved a.dwg", "first saved b.dwg"));
}

}  // namespace
