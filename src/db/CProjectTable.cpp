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
    void* found = nullptr;
    HRESULT result = command->QueryInterface(IID_ICommandProperties, &found);
    if (FAILED(result)) return result;
    auto* const target = static_cast<ICommandProperties*>(found);
    result = target->SetProperties(1, &set);
    target->Release();
    return result;
}

/// A new command of the session as the interface for its text; null when there is none.
ICommandText* MakeCommand() {
    void* found = nullptr;
    if (FAILED(ProjectSession()->QueryInterface(IID_IDBCreateCommand, &found))) return nullptr;
    auto* const commands = static_cast<IDBCreateCommand*>(found);
    IUnknown* made = nullptr;
    HRESULT result = commands->CreateCommand(nullptr, IID_ICommand, &made);
    commands->Release();
    if (FAILED(result)) return nullptr;
    result = made->QueryInterface(IID_ICommandText, &found);
    made->Release();
    return FAILED(result) ? nullptr : static_cast<ICommandText*>(found);
}

template <class Interface>
void Release(Interface*& pointer) {
    if (pointer != nullptr) pointer->Release();
    pointer = nullptr;
}

/// An interface of the row set for one call; null when it does not have it.
template <class Interface>
Interface* Query(IRowset* rowset, REFIID riid) {
    void* found = nullptr;
    if (rowset == nullptr || FAILED(rowset->QueryInterface(riid, &found))) return nullptr;
    return static_cast<Interface*>(found);
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
    rowset_ = static_cast<IRowset*>(rows);
    accessors_ = Query<IAccessor>(rowset_, IID_IAccessor);
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
    auto* const change = Query<IRowsetChange>(rowset_, IID_IRowsetChange);
    if (change == nullptr) return E_NOINTERFACE;
    const HRESULT result = change->SetData(row_, accessor_, record_);
    change->Release();
    return result;
}

HRESULT CProjectTable::Insert() {
    auto* const change = Query<IRowsetChange>(rowset_, IID_IRowsetChange);
    if (change == nullptr) return E_NOINTERFACE;
    const HRESULT result = change->InsertRow(DB_NULL_HCHAPTER, accessor_, record_, nullptr);
    change->Release();
    return result;
}

HRESULT CProjectTable::Delete() {
    auto* const change = Query<IRowsetChange>(rowset_, IID_IRowsetChange);
    if (change == nullptr) return E_NOINTERFACE;
    const HRESULT result = change->DeleteRows(DB_NULL_HCHAPTER, 1, &row_, nullptr);
    change->Release();
    return result;
}

HRESULT CProjectTable::Update() {
    auto* const update = Query<IRowsetUpdate>(rowset_, IID_IRowsetUpdate);
    if (update == nullptr) return E_NOINTERFACE;
    const HRESULT result = update->Update(DB_NULL_HCHAPTER, 1, &row_, nullptr, nullptr, nullptr);
    update->Release();
    return result;
}

void CProjectTable::Close() {
    ReleaseRow();
    if (accessor_ != DB_NULL_HACCESSOR) accessors_->ReleaseAccessor(accessor_, nullptr);
    accessor_ = DB_NULL_HACCESSOR;
    Release(accessors_);
    Release(rowset_);
    Release(command_);
}
