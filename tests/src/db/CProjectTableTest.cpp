#include "src/db/CProjectTable.h"

#include <gtest/gtest.h>

#include "platform/oledb/last_error.h"
#include "platform/win32/gbk_literal.h"
#include "src/db/project_tables.h"
#include "src/db/table_filters.h"
#include "tests/src/db/DatabaseFixture.h"

namespace {

using ProjectTable = DatabaseFixture;

/// Opens the table and reads its first row.
template <class Table>
HRESULT ReadFirst(Table& table, const std::string& filter) {
    return table.Open(table.BuildQuery(filter)) ? table.MoveFirst() : E_FAIL;
}

TEST_F(ProjectTable, EveryColumnArrivesInItsField) {
    Run("INSERT INTO x_GongCheng VALUES(12,'G-1','名称',2,0)");
    CGongChengTable projects;
    ASSERT_EQ(ReadFirst(projects, ProjectFilter(12)), S_OK) << oledb::LastErrorText();
    EXPECT_EQ(projects.record.GCSY, 12);
    EXPECT_STREQ(projects.record.GCBH, "G-1");
    EXPECT_STREQ(projects.record.GCMC, "名称"_gbk);
    EXPECT_EQ(projects.record.GCBZ, 2);

    Run("INSERT INTO z_c_QuYang VALUES(12,'ZK3','5',1.5,NULL)");
    CQuYangTable samples;
    ASSERT_EQ(ReadFirst(samples, SampleFilter(12, "ZK3", "5")), S_OK);
    EXPECT_EQ(std::u16string(samples.record.QYBH), u"5");
    EXPECT_EQ(samples.record.QYSD, 1.5F);
    EXPECT_EQ(samples.record.QYHDStatus, DBSTATUS_S_ISNULL);

    Run("INSERT INTO x_SheJi VALUES(12,255,3,1119,'0.020','')");
    CSheJiTable values;
    ASSERT_EQ(ReadFirst(values, LayerFilter(12, 255, 3)), S_OK);
    EXPECT_EQ(values.record.ZCBH, 255);
    EXPECT_EQ(values.record.YCBH, 3);
    EXPECT_EQ(values.record.CSLX, 1119);
    EXPECT_STREQ(values.record.CSV, "0.020");
}

TEST_F(ProjectTable, ResultColumnsArriveEachInItsOwn) {
    // Every column holds another number, so that no two can be mixed up.
    std::string columns;
    std::string values;
    double number = 1.0;
    for (const char* name : kClassColumns) {
        columns += std::string(",") + name;
        values += "," + std::to_string(number++);
    }
    for (const char* name : {"KLD10", "KLD15", "KLD30", "KLD50", "KLD60", "KLD85", "KLD90", "KLD95",
                             "KLHL", "KLBJXS", "KLQLXS"}) {
        columns += std::string(",") + name;
        values += "," + std::to_string(number++);
    }
    AddResultRow(columns + ",KLSYFF", values + ",'筛分法'");
    CKeFenTable table;
    ASSERT_EQ(ReadFirst(table, SampleFilter(12, "ZK3", "5")), S_OK) << oledb::LastErrorText();
    const auto& record = table.record;
    float expected = 1.0F;
    for (const CKeFenTable::FloatColumn& column : CKeFenTable::kClassColumns) {
        EXPECT_EQ(record.*column.value, expected++);
    }
    for (const float diameter : {record.KLD10, record.KLD15, record.KLD30, record.KLD50,
                                 record.KLD60, record.KLD85, record.KLD90, record.KLD95}) {
        EXPECT_EQ(diameter, expected++);
    }
    EXPECT_EQ(record.KLTYZL, 500.0F);
    EXPECT_EQ(record.KLHL, 28.0F);
    EXPECT_EQ(record.KLBJXS, 29.0F);
    EXPECT_EQ(record.KLQLXS, 30.0F);
    EXPECT_EQ(win32::Utf8FromUtf16(record.KLSYFF), "筛分法");
}

TEST_F(ProjectTable, ANullMethodIsEmptyAndANullTotalNoRow) {
    AddResultRow();
    CKeFenTable table;
    const std::string filter = SampleFilter(12, "ZK3", "5");
    ASSERT_EQ(ReadFirst(table, filter), S_OK);
    EXPECT_EQ(std::u16string(table.record.KLSYFF), u"");
    EXPECT_EQ(table.SetData(), S_OK);
    EXPECT_EQ(Rows("SELECT KLSYFF FROM Z_c_KeFen"), "null");
    table.Close();
    Run("UPDATE Z_c_KeFen SET KLTYZL=NULL");
    CKeFenTable without;
    EXPECT_TRUE(FAILED(ReadFirst(without, filter)));
    EXPECT_EQ(oledb::LastErrorText(),
              "Z_c_KeFen, GCSY=12, ZKBH=ZK3, QYBH=5: KLTYZL=null: a value is needed");
}

TEST_F(ProjectTable, WalksEndWithAnotherResultThanDone) {
    Run("INSERT INTO Z_c_KeFenCSXM VALUES(12,'ZK3','5',2,0.5,1),(12,'ZK3','5',1,2,1),"
        "(12,'ZK10','1',1,2,1),(13,'ZK1','1',1,2,1),(-1,'ZK3','5',3,2,1)");
    CKeFenItemTable table;
    std::string seen;
    for (HRESULT r = ReadFirst(table, ProjectItemsFilter(12)); r == S_OK; r = table.MoveNext()) {
        seen +=
            win32::Utf8FromUtf16(table.record.ZKBH) + "/" + std::to_string(table.record.XH) + " ";
    }
    EXPECT_EQ(seen, "ZK10/1 ZK3/1 ZK3/2 ");
    EXPECT_EQ(table.MoveNext(), DB_S_ENDOFROWSET);
    EXPECT_EQ(table.MoveFirst(), S_OK);
    EXPECT_EQ(table.Update(), E_NOINTERFACE);
    CKeFenItemTable none;
    EXPECT_EQ(ReadFirst(none, BoreholeItemsFilter(12, "ZK4")), DB_S_ENDOFROWSET);
    CKeFenItemTable unopened;
    EXPECT_TRUE(FAILED(unopened.MoveFirst()));
    EXPECT_EQ(unopened.SetData(), E_NOINTERFACE);
}

TEST_F(ProjectTable, LayersAreListedOnceInOrder) {
    Run("INSERT INTO x_SheJi VALUES(12,10,0,1105,'1',''),(12,2,1,1109,'1',''),(12,2,2,1106,'1',''),"
        "(12,2,1,1109,'2',''),(12,2,0,1108,'1',''),(12,3,0,1107,'1',''),(13,4,0,1105,'1','')");
    CSheJiLayerTable table;
    std::string seen;
    for (HRESULT r = ReadFirst(table, LayersWithFractionsFilter(12)); r == S_OK;
         r = table.MoveNext()) {
        seen += std::to_string(table.record.ZCBH) + "-" + std::to_string(table.record.YCBH) + " ";
    }
    EXPECT_EQ(seen, "2-0 2-1 2-2 10-0 ");
}

TEST_F(ProjectTable, KeysThatCannotStandInAStatementFailTheOpen) {
    AddResultRow();
    Run("INSERT INTO x_SheJi VALUES(12,2,1,1105,'1','')");
    const std::string wholeTable = "x' OR '1'='1";
    for (const std::string& filter :
         {SampleFilter(12, "ZK3", "O'Brien"), SampleFilter(12, "ZK'3", "5'"),
          SampleFilter(12, wholeTable, wholeTable), SampleFilter(12, "'", "''"),
          SampleFilter(12, "ZK3", "5'; DELETE FROM Z_c_KeFen; --")}) {
        SCOPED_TRACE(filter);
        CKeFenTable table;
        EXPECT_FALSE(table.Open(table.BuildQuery(filter)));
    }
    EXPECT_NE(oledb::LastErrorText().find("DELETE FROM"), std::string::npos)
        << "the text at fault is named";
    CKeFenItemTable items;
    EXPECT_FALSE(items.Open(items.BuildQuery(BoreholeItemsFilter(12, wholeTable))));
    EXPECT_EQ(Rows("SELECT count(*) FROM Z_c_KeFen"), "1");
    CKeFenTable other;
    EXPECT_EQ(ReadFirst(other, SampleFilter(12, "钻\\孔;\"--"_gbk, "5")), DB_S_ENDOFROWSET);
}

TEST_F(ProjectTable, AMissingTableOrColumnIsNamed) {
    Run("ALTER TABLE Z_c_KeFen DROP COLUMN KL_075; DROP TABLE z_c_QuYang");
    CKeFenTable results;
    EXPECT_FALSE(results.Open(results.BuildQuery(SampleFilter(12, "ZK3", "5"))));
    EXPECT_EQ(oledb::LastErrorText(), "Z_c_KeFen: no such column: KL_075");
    CQuYangTable samples;
    EXPECT_FALSE(samples.Open(samples.BuildQuery(SampleFilter(12, "ZK3", "5"))));
    EXPECT_EQ(oledb::LastErrorText(), "z_c_QuYang: no such table: z_c_QuYang");
}

}  // namespace
