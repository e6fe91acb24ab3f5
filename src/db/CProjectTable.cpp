#include "src/db/CProjectTable.h"

#include <string_view>

#include "src/core/gbk_text.h"
#include "src/db/project_database.h"

namespace {

DBPROP Flag(DBPROPID id) {
    DBPROP property{};
    property.dwPropertyID = id;
    property.dwOptions = DBPROPOPTIONS_REQUIRED;
    property.colid = DB_NULLID;
    property.vValue.vt = VT_BOOL;
    property.vValue.boolVal = VARIANT_TRUE;
    return property;
}

/// A row set that moves both ways and can be changed; without IRowsetUpdate it changes at once.
HRESULT SetRowsetProperties(ICommandText* command) {
    DBPROP properties[] = {Flag(DBPROP_CANHOLDROWS), Flag(DBPROP_CANFETCHBACKWARDS),
                           Flag(DBPROP_IRowsetScroll), Flag(DBPROP_IRowsetChange),
                           Flag(DBPROP_UPDATABILITY)};
    properties[4].vValue.vt = VT_I4;
    properties[4].vValue.lVal = DBPROPVAL_UP_CHANGE | DBPROPVAL_UP_DELETE | DBPROPVAL_UP_INSERT;
    DBPROPSET set{properties, 5, DBPROPSET_ROWSET};
    const auto target = QueryInterface<ICommandProperties>(command, IID_ICommandProperties);
    return target == nullptr ? E_NOINTERFACE : target->SetProperties(1, &set);
}

/// A new command of the session as the interface for its text; null when there is none.
CComPtr<ICommandText> MakeCommand() {
    const auto commands = QueryInterface<IDBCreateCommand>(ProjectSession(), IID_IDBCreateCommand);
    IUnknown* made = nullptr;
    if (commands == nullptr || FAILED(commands->CreateCommand(nullptr, IID_ICommand, &made))) {
        return {};
    }
    CComPtr<IUnknown> command;
    command.Attach(made);
    return QueryInterface<ICommandText>(command, IID_ICommandText);
}

}  // namespace

CProjectTable::~CProjectTable() {
    Close();
}

CProjectTable::Bindings CProjectTable::MakeBindings(const std::vector<Column>& columns) {
    Bindings bindings;
    for (const Column& column : columns) {
        DBBINDING& binding = bindings.emplace_back();
        binding.iOrdinal = bindings.size();
        binding.obValue = column.value;
        binding.dwPart = DBPART_VALUE;
        binding.dwMemOwner = DBMEMOWNER_CLIENTOWNED;
        binding.eParamIO = DBPARAMIO_NOTPARAM;
        binding.cbMaxLen = column.bytes;
        binding.wType = column.type;
        if (column.status != kNoStatus) {
            binding.dwPart |= DBPART_STATUS;
            binding.obStatus = column.status;
        }
    }
    return bindings;
}

std::string CProjectTable::BuildQuery(const std::string& filter) const {
    std::string statement = statement_;
    return statement.replace(statement.find("%s"), 2, filter);
}

bool CProjectTable::Open(const std::string& statement) {
    Close();
    if (ProjectSession() == nullptr && !OpenProjectDatabase()) return false;
    command_ = MakeCommand();
    if (command_ == nullptr) return false;
    if (FAILED(command_->SetCommandText(DBGUID_DEFAULT, WideText(statement).c_str())) ||
        FAILED(SetRowsetProperties(command_))) {
        return false;
    }
    IUnknown* rows = nullptr;
    if (FAILED(command_->Execute(nullptr, IID_IRowset, nullptr, nullptr, &rows))) return false;
    rowset_.Attach(rows);
    accessors_ = QueryInterface<IAccessor>(rowset_, IID_IAccessor);
    return accessors_ != nullptr &&
           SUCCEEDED(accessors_->CreateAccessor(DBACCESSOR_ROWDATA, bindings_.size(),
                                                bindings_.data(), 0, &accessor_, nullptr));
}

void CProjectTable::ReleaseRow() {
    if (row_ != DB_NULL_HROW) rowset_->ReleaseRows(1, &row_, nullptr, nullptr, nullptr);
    row_ = DB_NULL_HROW;
}

HRESULT CProjectTable::MoveFirst() {
    if (rowset_ == nullptr) return E_UNEXPECTED;
    ReleaseRow();
    const HRESULT result = rowset_->RestartPosition(DB_NULL_HCHAPTER);
    return FAILED(result) ? result : MoveNext();
}

HRESULT CProjectTable::OpenFirst(const std::string& filter) {
    return Open(BuildQuery(filter)) ? MoveFirst() : E_FAIL;
}

HRESULT CProjectTable::MoveNext() {
    if (rowset_ == nullptr) return E_UNEXPECTED;
    ReleaseRow();
    HROW* rows = &row_;
    DBCOUNTITEM obtained = 0;
    HRESULT result = rowset_->GetNextRows(DB_NULL_HCHAPTER, 0, 1, &obtained, &rows);
    if (result != S_OK) return result;
    result = rowset_->GetData(row_, accessor_, record_);
    if (FAILED(result)) ReleaseRow();
    return FAILED(result) ? result : S_OK;
}

HRESULT CProjectTable::SetData() {
    const auto change = QueryInterface<IRowsetChange>(rowset_, IID_IRowsetChange);
    if (change == nullptr) return E_NOINTERFACE;
    return change->SetData(row_, accessor_, record_);
}

HRESULT CProjectTable::Insert() {
    const auto change = QueryInterface<IRowsetChange>(rowset_, IID_IRowsetChange);
    if (change == nullptr) return E_NOINTERFACE;
    return change->InsertRow(DB_NULL_HCHAPTER, accessor_, record_, nullptr);
}

HRESULT CProjectTable::Delete() {
    const auto change = QueryInterface<IRowsetChange>(rowset_, IID_IRowsetChange);
    if (change == nullptr) return E_NOINTERFACE;
    return change->DeleteRows(DB_NULL_HCHAPTER, 1, &row_, nullptr);
}

HRESULT CProjectTable::Update() {
    const auto update = QueryInterface<IRowsetUpdate>(rowset_, IID_IRowsetUpdate);
    if (update == nullptr) return E_NOINTERFACE;
    return update->Update(DB_NULL_HCHAPTER, 1, &row_, nullptr, nullptr, nullptr);
}

void CProjectTable::Close() {
    ReleaseRow();
    if (accessor_ != DB_NULL_HACCESSOR) accessors_->ReleaseAccessor(accessor_, nullptr);
    accessor_ = DB_NULL_HACCESSOR;
    accessors_.Release();
    rowset_.Release();
    command_.Release();
}
