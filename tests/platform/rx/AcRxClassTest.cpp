#include "platform/rx/AcRxClass.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/rx/AcRxDictionary.h"

namespace {

class Early : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(Early);
};
class Late : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(Late);
};
class Child : public Late {
public:
    ACRX_DECLARE_MEMBERS(Child);
};

// The child registers before its parent: the order of statics in a program is anybody's.
ACRX_DEFINE_MEMBERS(Child, Late, []() -> AcRxObject* { return new Child; });
ACRX_DEFINE_MEMBERS(Early, AcRxObject, nullptr);
ACRX_DEFINE_MEMBERS(Late, AcRxObject, nullptr);

AcRxDictionary* classes() {
    return dynamic_cast<AcRxDictionary*>(acrxSysRegistry()->at("ClassDictionary"));
}

TEST(AcRxClassTest, KindFollowsTheParentsInWhicheverOrderTheyRegistered) {
    const Child child;
    EXPECT_TRUE(child.isKindOf(Child::desc()));
    EXPECT_TRUE(child.isKindOf(Late::desc()));
    EXPECT_TRUE(child.isKindOf(AcRxObject::desc()));
    EXPECT_FALSE(child.isKindOf(Early::desc()));
    EXPECT_FALSE(child.isKindOf(nullptr));
    EXPECT_EQ(AcRxObject::desc()->myParent(), nullptr);
    EXPECT_EQ(classes()->at("Child"), Child::desc());
    EXPECT_TRUE(Child::desc()->isKindOf(AcRxClass::desc()));
}

TEST(AcRxClassTest, ConstructorMakesObjectsOfTheClass) {
    const std::unique_ptr<AcRxObject> made(Child::desc()->create());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->isA(), Child::desc());
    EXPECT_EQ(Late::desc()->create(), nullptr);
}

TEST(AcRxClassTest, ARecordHasItsFilingNamesAndIsMadeOnce) {
    AcRxClass* const record =
        newAcRxClass("CSample", "AcRxObject", 23, 6, 255, nullptr, "CSAMPLE", "SAMPLEAPP");
    int version = 0;
    int maintenance = 0;
    record->getClassVersion(version, maintenance);
    EXPECT_EQ(version, 23);
    EXPECT_EQ(maintenance, 6);
    EXPECT_STREQ(record->dxfName(), "CSAMPLE");
    EXPECT_STREQ(record->appName(), "SAMPLEAPP");
    EXPECT_EQ(Child::desc()->dxfName(), nullptr);
    EXPECT_EQ(newAcRxClass("CSample", "Early"), record);
    EXPECT_EQ(newAcRxClass("", "AcRxObject"), nullptr);
    EXPECT_EQ(newAcRxClass(nullptr, "AcRxObject"), nullptr);
    deleteAcRxClass(record);
    EXPECT_EQ(classes()->at("CSample"), nullptr);
    deleteAcRxClass(nullptr);
}

TEST(AcRxClassTest, AClassLosesItsParentWithTheParentsRecordAndFindsTheNextOne) {
    AcRxClass* const derived = newAcRxClass("CDerived", "CBase");
    EXPECT_EQ(derived->myParent(), nullptr);
    AcRxClass* const base = newAcRxClass("CBase", "AcRxObject");
    EXPECT_TRUE(derived->isDerivedFrom(base));
    deleteAcRxClass(base);
    EXPECT_EQ(derived->myParent(), nullptr);
    EXPECT_FALSE(derived->isDerivedFrom(AcRxObject::desc()));
    AcRxClass* const again = newAcRxClass("CBase", "AcRxObject");
    EXPECT_EQ(derived->myParent(), again);
    EXPECT_TRUE(derived->isDerivedFrom(AcRxObject::desc()));
    deleteAcRxClass(derived);
    deleteAcRxClass(again);
}

TEST(AcRxDictionaryTest, PuttingReplacesAndGivesThePreviousEntry) {
    AcRxDictionary dictionary;
    Early first;
    Early second;
    EXPECT_EQ(dictionary.atPut("Name", &first), nullptr);
    EXPECT_EQ(dictionary.atPut("Name", &second), &first);
    EXPECT_EQ(dictionary.at("name"), nullptr);
    EXPECT_EQ(dictionary.remove("Name"), &second);
    EXPECT_EQ(dictionary.remove("Name"), nullptr);
    EXPECT_EQ(dictionary.at("Name"), nullptr);
}

}  // namespace
