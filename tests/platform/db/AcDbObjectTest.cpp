#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbObject.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/db/AcDbHostApplicationServices.h"
#include "platform/db/AcDbLine.h"
#include "tests/platform/db/DrawingFixture.h"

namespace {

class AcDbObjectTest : public DrawingFixture {
protected:
    Acad::ErrorStatus open(AcDb::OpenMode mode, bool erased = false) {
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus status =
            acdbOpenAcDbObject(object, line_->objectId(), mode, erased);
        EXPECT_EQ(object != nullptr, status == Acad::eOk);
        return status;
    }

    AcDbLine* line_ = append(std::make_unique<AcDbLine>());
};
using AcDbObjectDeathTest = AcDbObjectTest;

TEST_F(AcDbObjectTest, ManyReadersOrOneWriter) {
    EXPECT_EQ(line_->close(), Acad::eNotOpenForRead);
    EXPECT_EQ(open(AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(open(AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(line_->isReadEnabled());
    EXPECT_FALSE(line_->isWriteEnabled());
    EXPECT_EQ(open(AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(line_->close(), Acad::eOk);
    EXPECT_EQ(open(AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(line_->close(), Acad::eOk);

    EXPECT_EQ(open(AcDb::kForWrite), Acad::eOk);
    EXPECT_TRUE(line_->isReadEnabled());
    EXPECT_EQ(open(AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(open(AcDb::kForWrite), Acad::eWasOpenForWrite);
    EXPECT_EQ(line_->close(), Acad::eOk);
    EXPECT_EQ(line_->close(), Acad::eNotOpenForRead);
    EXPECT_EQ(open(static_cast<AcDb::OpenMode>(9)), Acad::eInvalidOpenState);
    EXPECT_FALSE(line_->isReadEnabled());
}

TEST_F(AcDbObjectTest, OpeningNothingOrAnotherClassIsRefused) {
    AcDbObject* object = line_;
    EXPECT_EQ(acdbOpenObject(object, AcDbObjectId::kNull, AcDb::kForRead), Acad::eNullObjectId);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(acdbOpenObject(object, database_.idOfHandle(0xABCDE), AcDb::kForRead),
              Acad::eNullObjectId);
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(acdbOpenObject(table, line_->objectId(), AcDb::kForWrite), Acad::eNotApplicable);
    EXPECT_EQ(table, nullptr);
    EXPECT_EQ(open(AcDb::kForWrite), Acad::eOk);  // the refusal left it closed
    line_->close();

    AcDbLine free;
    EXPECT_EQ(free.close(), Acad::eNotInDatabase);
    EXPECT_EQ(free.erase(), Acad::eNotInDatabase);
    EXPECT_TRUE(free.isWriteEnabled());
}

TEST_F(AcDbObjectTest, ErasedObjectsOpenOnRequestAndComeBack) {
    EXPECT_EQ(line_->erase(), Acad::eNotOpenForWrite);
    ASSERT_EQ(open(AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(line_->erase(), Acad::eOk);
    line_->close();
    EXPECT_TRUE(line_->objectId().isErased());
    EXPECT_EQ(open(AcDb::kForRead), Acad::eWasErased);
    ASSERT_EQ(open(AcDb::kForWrite, true), Acad::eOk);
    EXPECT_EQ(line_->erase(false), Acad::eOk);
    line_->close();
    EXPECT_EQ(open(AcDb::kForRead), Acad::eOk);
}

TEST_F(AcDbObjectDeathTest, UsingAnObjectThatIsNotOpenStopsTheProgram) {
    EXPECT_DEATH(line_->setStartPoint({1, 2, 0}),
                 "AcDbLine [0-9A-F]+ is changed without being open");
    EXPECT_DEATH(line_->assertReadEnabled(), "AcDbLine [0-9A-F]+ is used without being open");
    ASSERT_EQ(open(AcDb::kForRead), Acad::eOk);
    line_->assertReadEnabled();
    EXPECT_DEATH(line_->setStartPoint({1, 2, 0}), "changed without being open for write");
}

TEST_F(AcDbObjectTest, ChangingMarksObjectAndDrawingReadingDoesNot) {
    database_.setModified(false);
    ASSERT_EQ(open(AcDb::kForRead), Acad::eOk);
    line_->close();
    EXPECT_FALSE(database_.isModified());
    ASSERT_EQ(open(AcDb::kForWrite), Acad::eOk);
    line_->setEndPoint({1, 0, 0});
    line_->close();
    EXPECT_TRUE(line_->isModified());
    EXPECT_TRUE(database_.isModified());

    database_.setModified(false);
    auto read = std::make_unique<AcDbLine>();
    read->setEndPoint({2, 0, 0});
    const AcDbObjectId id = database_.idOfHandle(0x5000);
    database_.placeObject(id, std::move(read));
    EXPECT_FALSE(AcDbDatabase::objectOf(id)->isModified());
    EXPECT_FALSE(database_.isModified());
}

TEST_F(AcDbObjectTest, PersistentReactorsCountOnce) {
    const AcDbObjectId other = append(std::make_unique<AcDbLine>())->objectId();
    ASSERT_EQ(open(AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(line_->addPersistentReactor(other), Acad::eOk);
    EXPECT_EQ(line_->addPersistentReactor(other), Acad::eDuplicateKey);
    EXPECT_EQ(line_->addPersistentReactor(AcDbObjectId::kNull), Acad::eNullObjectId);
    ASSERT_EQ(line_->persistentReactors().length(), 1);
    EXPECT_EQ(line_->persistentReactors()[0], other);
    line_->close();
}

TEST_F(AcDbObjectTest, HandlesAreNeverGivenTwice) {
    AcDbHandle handle = 0;
    line_->getAcDbHandle(handle);
    AcDbObjectId found;
    EXPECT_EQ(database_.getAcDbObjectId(found, handle), Acad::eOk);
    EXPECT_EQ(found, line_->objectId());
    EXPECT_EQ(database_.getAcDbObjectId(found, 0x7777), Acad::eKeyNotFound);
    EXPECT_TRUE(found.isNull());
    EXPECT_TRUE(database_.idOfHandle(0).isNull());

    // A file may refer to a handle whose object it does not hold.
    const AcDbObjectId dangling = database_.idOfHandle(0x7777);
    EXPECT_EQ(database_.idOfHandle(0x7777), dangling);
    EXPECT_EQ(dangling.database(), &database_);
    const AcDbLine* const next = append(std::make_unique<AcDbLine>());
    EXPECT_GT(next->objectId().handle(), 0x7777U);
    EXPECT_EQ(database_.idOfHandle(next->objectId().handle()), next->objectId());
}

TEST(AcDbDatabaseTest, TheWorkingDatabaseIsForgottenWithTheDatabase) {
    auto database = std::make_unique<AcDbDatabase>(false);
    AcDbDatabase other(false);
    acdbHostApplicationServices()->setWorkingDatabase(database.get());
    { const AcDbDatabase unrelated(false); }
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), database.get());
    database.reset();
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

// A hash table with that many places would put all of these into one of them.
TEST_F(AcDbObjectTest, HandlesChosenToMeetAreFoundLikeOthers) {
    const auto secondsFor = [](AcDbHandle step) {
        AcDbDatabase drawing(false);
        const auto start = std::chrono::steady_clock::now();
        for (AcDbHandle i = 1; i < 85'000; ++i) {
            drawing.idOfHandle(i * step);
        }
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    EXPECT_LT(secondsFor(85'229), 200.0 * secondsFor(1));
}

}  // namespace
