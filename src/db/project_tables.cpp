#include "src/db/project_tables.h"

#include <initializer_list>

namespace {

constexpr std::size_t kNoStatus = CProjectTable::kNoStatus;

/// The columns of a table as its record has them, in the order of the statement.
template <class Record>
class ColumnList {
public:
    template <class Value>
    ColumnList& Add(DBTYPE type, Value Record::*value) {
        columns_.push_back({type, OffsetOf(value), sizeof(Value), kNoStatus});
        return *this;
    }
    template <class Value>
    ColumnList& Add(DBTYPE type, Value Record::*value, DBSTATUS Record::*status) {
        columns_.push_back({type, OffsetOf(value), sizeof(Value), OffsetOf(status)});
        return *this;
    }
    CProjectTable::Bindings MakeBindings() const { return CProjectTable::MakeBindings(columns_); }

private:
    template <class Value>
    static std::size_t OffsetOf(Value Record::*field) {
        static const Record record{};
        return static_cast<std::size_t>(reinterpret_cast<const std::byte*>(&(record.*field)) -
                                        reinterpret_cast<const std::byte*>(&record));
    }

    std::vector<CProjectTable::Column> columns_;
};

const CProjectTable::Bindings& ProjectBindings() {
    using Record = CGongChengTable::Record;
    static const auto bindings = ColumnList<Record>()
                                     .Add(DBTYPE_I4, &Record::GCSY)
                                     .Add(DBTYPE_STR, &Record::GCBH)
                                     .Add(DBTYPE_STR, &Record::GCMC)
                                     .Add(DBTYPE_I2, &Record::GCBZ)
                                     .Add(DBTYPE_I4, &Record::GCSJ)
                                     .MakeBindings();
    return bindings;
}

const CProjectTable::Bindings& SampleBindings() {
    using Record = CQuYangTable::Record;
    static const auto bindings = ColumnList<Record>()
                                     .Add(DBTYPE_I4, &Record::GCSY)
                                     .Add(DBTYPE_WSTR, &Record::ZKBH)
                                     .Add(DBTYPE_WSTR, &Record::QYBH)
                                     .Add(DBTYPE_R4, &Record::QYSD, &Record::QYSDStatus)
                                     .Add(DBTYPE_R4, &Record::QYHD, &Record::QYHDStatus)
                                     .MakeBindings();
    return bindings;
}

CProjectTable::Bindings MakeResultBindings() {
    using Record = CKeFenTable::Record;
    ColumnList<Record> columns;
    const auto add = [&columns](const CKeFenTable::FloatColumn& column) {
        columns.Add(DBTYPE_R4, column.value, column.status);
    };
    columns.Add(DBTYPE_I4, &Record::GCSY)
        .Add(DBTYPE_WSTR, &Record::ZKBH)
        .Add(DBTYPE_WSTR, &Record::QYBH)
        .Add(DBTYPE_WSTR, &Record::KLSYFF, &Record::KLSYFFStatus);
    for (const CKeFenTable::FloatColumn& column : CKeFenTable::kClassColumns) add(column);
    for (const int i : {kD10, kD15, kD30, kD50, kD60, kD85, kD90, kD95}) {
        add(CKeFenTable::kDiameterColumns[i]);
    }
    columns.Add(DBTYPE_R4, &Record::KLTYZL);
    add(CKeFenTable::kFineColumn);
    add(CKeFenTable::kUniformityColumn);
    add(CKeFenTable::kCurvatureColumn);
    return columns.MakeBindings();
}

const CProjectTable::Bindings& ResultBindings() {
    static const CProjectTable::Bindings bindings = MakeResultBindings();
    return bindings;
}

const CProjectTable::Bindings& ItemBindings() {
    using Record = CKeFenItemTable::Record;
    static const auto bindings = ColumnList<Record>()
                                     .Add(DBTYPE_I4, &Record::GCSY)
                                     .Add(DBTYPE_WSTR, &Record::ZKBH)
                                     .Add(DBTYPE_WSTR, &Record::QYBH)
                                     .Add(DBTYPE_I4, &Record::XH)
                                     .Add(DBTYPE_R4, &Record::KLLJ, &Record::KLLJStatus)
                                     .Add(DBTYPE_R4, &Record::KLSYZL, &Record::KLSYZLStatus)
                                     .MakeBindings();
    return bindings;
}

const CProjectTable::Bindings& LayerValueBindings() {
    using Record = CSheJiTable::Record;
    static const auto bindings = ColumnList<Record>()
                                     .Add(DBTYPE_I4, &Record::GCSY)
                                     .Add(DBTYPE_UI1, &Record::ZCBH)
                                     .Add(DBTYPE_UI1, &Record::YCBH)
                                     .Add(DBTYPE_I2, &Record::CSLX)
                                     .Add(DBTYPE_STR, &Record::CSV, &Record::CSVStatus)
                                     .MakeBindings();
    return bindings;
}

const CProjectTable::Bindings& LayerBindings() {
    using Record = CSheJiLayerTable::Record;
    static const auto bindings = ColumnList<Record>()
                                     .Add(DBTYPE_I4, &Record::GCSY)
                                     .Add(DBTYPE_UI1, &Record::ZCBH)
                                     .Add(DBTYPE_UI1, &Record::YCBH)
                                     .MakeBindings();
    return bindings;
}

}  // namespace

constinit const CKeFenTable::FloatColumn CKeFenTable::kClassColumns[kSieveSeries.size()] = {
    {&Record::KL800, &Record::KL800Status},   {&Record::KL400, &Record::KL400Status},
    {&Record::KL200, &Record::KL200Status},   {&Record::KL60, &Record::KL60Status},
    {&Record::KL40, &Record::KL40Status},     {&Record::KL20, &Record::KL20Status},
    {&Record::KL10, &Record::KL10Status},     {&Record::KL5, &Record::KL5Status},
    {&Record::KL2, &Record::KL2Status},       {&Record::KL_5, &Record::KL_5Status},
    {&Record::KL_25, &Record::KL_25Status},   {&Record::KL_1, &Record::KL_1Status},
    {&Record::KL_075, &Record::KL_075Status}, {&Record::KL_074, &Record::KL_074Status},
    {&Record::KL_05, &Record::KL_05Status},   {&Record::KL_01, &Record::KL_01Status},
    {&Record::KL_005, &Record::KL_005Status}, {&Record::KL_002, &Record::KL_002Status},
    {&Record::KL0, &Record::KL0Status}};
constinit const CKeFenTable::FloatColumn CKeFenTable::kDiameterColumns[kDiameterCount] = {
    {&Record::KLD95, &Record::KLD95Status}, {&Record::KLD85, &Record::KLD85Status},
    {&Record::KLD60, &Record::KLD60Status}, {&Record::KLD50, &Record::KLD50Status},
    {&Record::KLD30, &Record::KLD30Status}, {&Record::KLD15, &Record::KLD15Status},
    {&Record::KLD10, &Record::KLD10Status}, {&Record::KLD90, &Record::KLD90Status}};
constinit const CKeFenTable::FloatColumn CKeFenTable::kFineColumn = {&Record::KLHL,
                                                                     &Record::KLHLStatus};
constinit const CKeFenTable::FloatColumn CKeFenTable::kUniformityColumn = {&Record::KLBJXS,
                                                                           &Record::KLBJXSStatus};
constinit const CKeFenTable::FloatColumn CKeFenTable::kCurvatureColumn = {&Record::KLQLXS,
                                                                          &Record::KLQLXSStatus};

CGongChengTable::CGongChengTable()
    : CProjectTable("SELECT GCSY,GCBH,GCMC,GCBZ,GCSJ FROM x_GongCheng WHERE GCSY > -1 and %s;",
                    ProjectBindings(), &record) {}

CQuYangTable::CQuYangTable()
    : CProjectTable("SELECT GCSY,ZKBH,QYBH,QYSD,QYHD FROM z_c_QuYang WHERE GCSY > -1 and %s;",
                    SampleBindings(), &record) {}

CKeFenTable::CKeFenTable()
    : CProjectTable(
          "SELECT GCSY,ZKBH,QYBH,KLSYFF,KL800,KL400,KL200,KL60,KL40,KL20,KL10,KL5,KL2,"
          "KL_5,KL_25,KL_1,KL_075,KL_074,KL_05,KL_01,KL_005,KL_002,KL0,KLD10,KLD15,KLD30,"
          "KLD50,KLD60,KLD85,KLD90,KLD95,KLTYZL,KLHL,KLBJXS,KLQLXS FROM Z_c_KeFen "
          "WHERE GCSY > -1 and %s;",
          ResultBindings(), &record) {}

CKeFenItemTable::CKeFenItemTable()
    : CProjectTable(
          "SELECT GCSY,ZKBH,QYBH,XH,KLLJ,KLSYZL FROM Z_c_KeFenCSXM WHERE GCSY > -1 and %s;",
          ItemBindings(), &record) {}

CSheJiTable::CSheJiTable()
    : CProjectTable("SELECT GCSY,ZCBH,YCBH,CSLX,CSV FROM x_SheJi WHERE GCSY > -1 and %s;",
                    LayerValueBindings(), &record) {}

CSheJiLayerTable::CSheJiLayerTable()
    : CProjectTable("SELECT DISTINCT GCSY,ZCBH,YCBH FROM x_SheJi WHERE GCSY > -1 and %s;",
                    LayerBindings(), &record) {}
