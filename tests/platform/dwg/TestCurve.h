#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbDwgFiler.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/gi/AcGiWorldDraw.h"

/// An entity as a module brings it: a class record of its own, fields of every kind, and two fields
/// at the end that are filed in one of two modes only.
class TestCurve : public AcDbEntity {
public:
    /// The class is there while one of these is.
    class Registration {
    public:
        Registration() {
            record() = newAcRxClass(
                "TestCurve", "AcDbEntity", 23, 6, 255,
                []() -> AcRxObject* { return new TestCurve; }, "TESTCURVE", "TESTAPP");
        }
        ~Registration() {
            deleteAcRxClass(record());
            record() = nullptr;
        }
        Registration(const Registration&) = delete;
        Registration& operator=(const Registration&) = delete;
    };

    AcRxClass* isA() const override { return record(); }

    /// Puts something in every field.
    void fill(AcDbObjectId textStyle) {
        origin = {10, 20, 0};
        points = {{1, 2, 0}, {3, 1.5, 0}, {0, 0, 1}};
        shortNumber = -5;
        text = "ZK1";
        size = 2.5;
        flag = true;
        unsignedNumber = 257;
        style = textStyle;
        mainLayer = 3;
        subLayer = 400;
        setColorIndex(257);
    }
    /// Whether it is as `fill` leaves it, the layers left aside.
    void expectFilled() const {
        EXPECT_EQ(origin.y, 20);
        ASSERT_EQ(points.length(), 3);
        EXPECT_EQ(points[1].y, 1.5);
        EXPECT_EQ(shortNumber, -5);
        EXPECT_EQ(text, "ZK1");
        EXPECT_EQ(size, 2.5);
        EXPECT_TRUE(flag);
        EXPECT_EQ(unsignedNumber, 257);
        EXPECT_STREQ(static_cast<AcDbTextStyleTableRecord&>(*AcDbDatabase::objectOf(style)).name(),
                     "QV_FONT");
        EXPECT_EQ(colorIndex(), 257);
    }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
        assertReadEnabled();
        AcDbEntity::dwgOutFields(filer);
        filer->writePoint3d(origin);
        filer->writeInt32(points.length());
        for (const AcGePoint3d& point : points) {
            filer->writePoint3d(point);
        }
        filer->writeInt16(shortNumber);
        filer->writeString(text.c_str());
        filer->writeDouble(size);
        filer->writeBoolean(flag);
        filer->writeUInt16(unsignedNumber);
        filer->writeHardPointerId(style);
        if (filesLayers()) {
            filer->writeInt32(mainLayer);
            filer->writeInt32(subLayer);
        }
        return Acad::eOk;
    }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
        assertWriteEnabled();
        AcDbEntity::dwgInFields(filer);
        filer->readPoint3d(&origin);
        Adesk::Int32 count = 0;
        filer->readInt32(&count);
        points = {};
        for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
            AcGePoint3d point;
            filer->readPoint3d(&point);
            points.append(point);
        }
        filer->readInt16(&shortNumber);
        char* bytes = nullptr;
        filer->readString(&bytes);
        text = bytes;
        acutDelString(bytes);
        filer->readDouble(&size);
        filer->readBoolean(&flag);
        filer->readUInt16(&unsignedNumber);
        filer->readHardPointerId(&style);
        if (filesLayers()) {
            filer->readInt32(&mainLayer);
            filer->readInt32(&subLayer);
        }
        return Acad::eOk;
    }

    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override {
        assertReadEnabled();
        context->geometry().polyline(static_cast<Adesk::UInt32>(points.length()),
                                     points.asArrayPtr());
        return true;
    }

    /// Whether the last two fields are filed.
    static bool& filesLayers() {
        static bool files = false;
        return files;
    }

    AcGePoint3d origin;
    AcGePoint3dArray points;
    Adesk::Int16 shortNumber = 0;
    std::string text;
    double size = 0.0;
    bool flag = false;
    Adesk::UInt16 unsignedNumber = 0;
    AcDbObjectId style;
    Adesk::Int32 mainLayer = 0;
    Adesk::Int32 subLayer = 0;

private:
    static AcRxClass*& record() {
        static AcRxClass* registered = nullptr;
        return registered;
    }
};
