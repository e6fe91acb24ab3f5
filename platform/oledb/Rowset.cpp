#include "platform/oledb/Rowset.h"

#include <cstring>

#include "platform/oledb/last_error.h"
#include "platform/oledb/row_text.h"
#include "platform/oledb/value_conversion.h"

namespace oledb {
namespace {

constexpr bool IsUsable(DBSTATUS status) {
    return status == DBSTATUS_S_OK || status == DBSTATUS_S_TRUNCATED;
}

bool HasStatus(const DBBINDING& binding) {
    return (binding.dwPart & DBPART_STATUS) != 0;
}

DBSTATUS StatusIn(const DBBINDING& binding, const std::byte* data) {
    DBSTATUS status = DBSTATUS_S_OK;
    if (HasStatus(binding)) std::memcpy(&status, data + binding.obStatus, sizeof(status));
    return status;
}

void PutStatus(const DBBINDING& binding, std::byte* data, DBSTATUS status) {
    if (HasStatus(binding)) std::memcpy(data + binding.obStatus, &status, sizeof(status));
}

const char* Reason(DBSTATUS status) {
    switch (status) {
        case DBSTATUS_S_ISNULL:
            return "a value is needed";
        case DBSTATUS_E_DATAOVERFLOW:
            return "out of the range of the column's type";
        case DBSTATUS_E_BADSTATUS:
            return "status that cannot be written";
        default:
            return "not of the column's type";
    }
}

}  // namespace

IUnknown* Rowset::Find(REFIID riid) {
    if (riid == IID_IRowset || riid == IID_IUnknown) return static_cast<IRowset*>(this);
    if (riid == IID_IAccessor) return static_cast<IAccessor*>(this);
    if (riid == IID_IRowsetChange && properties_.Changes()) {
        return static_cast<IRowsetChange*>(this);
    }
    return nullptr;
}

// Accessors

HRESULT Rowset::CreateAccessor(DBACCESSORFLAGS flags, DBCOUNTITEM count, const DBBINDING* bindings,
                               DBLENGTH /*rowSize*/, HACCESSOR* accessor, DBBINDSTATUS* statuses) {
    if (accessor == nullptr || (count != 0 && bindings == nullptr)) return E_INVALIDARG;
    *accessor = DB_NULL_HACCESSOR;
    if (flags != DBACCESSOR_ROWDATA) {
        return SetLastError(DB_E_BADBINDINFO, "only row accessors are offered");
    }
    Accessor made;
    HRESULT result = made.Bind(count, bindings, selection_->ColumnCount(), statuses);
    if (SUCCEEDED(result)) result = CheckCells(made);
    if (FAILED(result)) return result;
    if (scratch_.size() < made.LargestPlace()) scratch_.resize(made.LargestPlace());
    accessors_.emplace(++lastAccessor_, std::move(made));
    *accessor = lastAccessor_;
    return S_OK;
}

HRESULT Rowset::CheckCells(const Accessor& accessor) {
    for (std::size_t row = 0; row < selection_->RowCount(); ++row) {
        const HRESULT result = selection_->Read(row, values_);
        if (FAILED(result)) return result;
        for (const DBBINDING& binding : accessor.Bindings()) {
            const Value& value = values_[binding.iOrdinal - 1];
            if (CountsAsNull(value, binding.wType)) continue;
            const DBSTATUS status = CheckConversion(value, binding.wType);
            if (!IsUsable(status)) return Unreadable(accessor, binding, status);
        }
    }
    return S_OK;
}

HRESULT Rowset::ReleaseAccessor(HACCESSOR accessor, ULONG* references) {
    if (references != nullptr) *references = 0;
    return accessors_.erase(accessor) == 1 ? S_OK : DB_E_BADACCESSORHANDLE;
}

const Accessor* Rowset::FindAccessor(HACCESSOR accessor) const {
    const auto found = accessors_.find(accessor);
    return found == accessors_.end() ? nullptr : &found->second;
}

// Position

HRESULT Rowset::RestartPosition(HCHAPTER /*chapter*/) {
    next_ = 0;
    restarted_ = true;
    return S_OK;
}

HRESULT Rowset::GetNextRows(HCHAPTER /*chapter*/, DBROWOFFSET offset, DBROWCOUNT count,
                            DBCOUNTITEM* obtained, HROW** rows) {
    if (obtained == nullptr || rows == nullptr || *rows == nullptr) return E_INVALIDARG;
    *obtained = 0;
    const auto size = static_cast<DBROWOFFSET>(selection_->RowCount());
    // Backwards from the start begins behind the last row.
    const bool fromEnd = restarted_ && (offset < 0 || (offset == 0 && count < 0));
    const DBROWOFFSET start = (fromEnd ? size : static_cast<DBROWOFFSET>(next_)) + offset;
    if (start < 0 || start > size) return DB_S_ENDOFROWSET;

    DBROWOFFSET at = start;
    const DBCOUNTITEM wanted = static_cast<DBCOUNTITEM>(count < 0 ? -count : count);
    while (*obtained < wanted && (count < 0 ? at > 0 : at < size)) {
        const HROW row = static_cast<HROW>(count < 0 ? at-- : ++at);
        if (!deleted_.empty() && deleted_.contains(row)) continue;
        ++held_[row];
        (*rows)[(*obtained)++] = row;
    }
    next_ = static_cast<std::size_t>(at);
    restarted_ = false;
    return *obtained == wanted ? S_OK : DB_S_ENDOFROWSET;
}

HRESULT Rowset::ReleaseRows(DBCOUNTITEM count, const HROW* rows, DWORD* /*options*/,
                            ULONG* references, DWORD* statuses) {
    HRESULT result = S_OK;
    for (DBCOUNTITEM i = 0; i < count; ++i) {
        const auto held = held_.find(rows[i]);
        const bool known = held != held_.end();
        const ULONG left = known ? --held->second : 0;
        if (known && left == 0) held_.erase(held);
        if (!known) result = DB_E_ERRORSOCCURRED;
        if (references != nullptr) references[i] = left;
        if (statuses != nullptr) statuses[i] = known ? DBSTATUS_S_OK : DBSTATUS_E_BADSTATUS;
    }
    return result;
}

HRESULT Rowset::CheckRow(HROW row) const {
    if (!held_.contains(row)) return SetLastError(DB_E_BADROWHANDLE, "row handle is not held");
    if (deleted_.contains(row)) return SetLastError(DB_E_DELETEDROW, "the row was deleted");
    return S_OK;
}

// Reading

DBSTATUS Rowset::Deliver(const DBBINDING& binding, std::byte* data) const {
    const Value& value = values_[binding.iOrdinal - 1];
    std::byte* const place = data + binding.obValue;
    if (CountsAsNull(value, binding.wType)) {
        if (!HasStatus(binding)) return DBSTATUS_S_ISNULL;
        std::memset(place, 0, MinimumLength(binding.wType));
        PutStatus(binding, data, DBSTATUS_S_ISNULL);
        return DBSTATUS_S_OK;
    }
    const DBSTATUS status = ToPlace(value, binding, place);
    PutStatus(binding, data, status);
    return status;
}

HRESULT Rowset::Unreadable(const Accessor& accessor, const DBBINDING& binding,
                           DBSTATUS status) const {
    const std::size_t column = binding.iOrdinal - 1;
    return SetLastError(DB_E_ERRORSOCCURRED, RowText(*selection_, accessor, values_) + ": " +
                                                 CellText(*selection_, {column, values_[column]}) +
                                                 ": " + Reason(status));
}

HRESULT Rowset::Unwritable(const Accessor& accessor, const DBBINDING& binding,
                           DBSTATUS status) const {
    return SetLastError(DB_E_ERRORSOCCURRED, RowText(*selection_, accessor, values_) + ": " +
                                                 selection_->ColumnName(binding.iOrdinal - 1) +
                                                 ": " + Reason(status));
}

HRESULT Rowset::GetData(HROW row, HACCESSOR accessor, void* data) {
    HRESULT result = CheckRow(row);
    if (FAILED(result)) return result;
    const Accessor* const bound = FindAccessor(accessor);
    if (bound == nullptr) return DB_E_BADACCESSORHANDLE;
    if (data == nullptr) return E_INVALIDARG;
    result = selection_->Read(row - 1, values_);
    if (FAILED(result)) return result;
    for (const DBBINDING& binding : bound->Bindings()) {
        const DBSTATUS status = Deliver(binding, static_cast<std::byte*>(data));
        if (!IsUsable(status)) result = Unreadable(*bound, binding, status);
    }
    return result;
}

// Changing

HRESULT Rowset::CheckChange(LONG kind) const {
    if (properties_.Allows(kind)) return S_OK;
    return SetLastError(DB_E_NOTSUPPORTED, "this kind of change was not asked for");
}

bool Rowset::Unchanged(const DBBINDING& binding, const std::byte* data) {
    const Value& value = values_[binding.iOrdinal - 1];
    const bool wasNull = CountsAsNull(value, binding.wType);
    const bool isNull = StatusIn(binding, data) == DBSTATUS_S_ISNULL;
    if (wasNull || isNull) return wasNull == isNull;
    return IsUsable(ToPlace(value, binding, scratch_.data())) &&
           SamePlaces(binding, scratch_.data(), data + binding.obValue);
}

HRESULT Rowset::Take(const Accessor& accessor, std::byte* data, bool changedOnly, Taken& taken) {
    // Values point into the texts, which therefore must not move.
    taken.texts.resize(accessor.Bindings().size());
    HRESULT result = S_OK;
    for (std::size_t i = 0; i < accessor.Bindings().size(); ++i) {
        const DBBINDING& binding = accessor.Bindings()[i];
        DBSTATUS status = StatusIn(binding, data);
        Value value;
        if (IsUsable(status)) {
            if (changedOnly && Unchanged(binding, data)) continue;
            status = FromPlace(binding, data + binding.obValue, value, taken.texts[i]);
        } else if (status == DBSTATUS_S_ISNULL) {
            if (changedOnly && Unchanged(binding, data)) continue;
            status = DBSTATUS_S_OK;
        } else {
            status = DBSTATUS_E_BADSTATUS;
        }
        if (status != DBSTATUS_S_OK) {
            PutStatus(binding, data, status);
            result = Unwritable(accessor, binding, status);
        }
        if (!changedOnly) values_[binding.iOrdinal - 1] = value;
        taken.values.push_back({binding.iOrdinal - 1, value});
    }
    return result;
}

HRESULT Rowset::SetData(HROW row, HACCESSOR accessor, void* data) {
    HRESULT result = CheckChange(DBPROPVAL_UP_CHANGE);
    if (SUCCEEDED(result)) result = CheckRow(row);
    if (FAILED(result)) return result;
    const Accessor* const bound = FindAccessor(accessor);
    if (bound == nullptr) return DB_E_BADACCESSORHANDLE;
    if (data == nullptr) return E_INVALIDARG;
    result = selection_->Read(row - 1, values_);
    if (FAILED(result)) return result;
    Taken taken;
    result = Take(*bound, static_cast<std::byte*>(data), true, taken);
    if (FAILED(result) || taken.values.empty()) return result;
    return transaction_->Change(
        [&] { return ChangeText(*selection_, *bound, values_, taken.values); },
        [&](std::string& reason) { return selection_->Update(row - 1, taken.values, reason); });
}

HRESULT Rowset::InsertRow(HCHAPTER /*chapter*/, HACCESSOR accessor, void* data, HROW* row) {
    if (row != nullptr) return E_INVALIDARG;
    HRESULT result = CheckChange(DBPROPVAL_UP_INSERT);
    if (FAILED(result)) return result;
    const Accessor* const bound = FindAccessor(accessor);
    if (bound == nullptr) return DB_E_BADACCESSORHANDLE;
    if (data == nullptr) return E_INVALIDARG;
    values_.assign(selection_->ColumnCount(), Value());
    Taken taken;
    result = Take(*bound, static_cast<std::byte*>(data), false, taken);
    if (FAILED(result)) return result;
    return transaction_->Change(
        [&] { return ChangeText(*selection_, *bound, values_, taken.values); },
        [&](std::string& reason) { return selection_->Insert(taken.values, reason); });
}

HRESULT Rowset::DeleteRow(HROW row) {
    HRESULT result = CheckRow(row);
    if (FAILED(result)) return result;
    result = transaction_->Change(
        [&] { return RowName(row) + ": row to be deleted"; },
        [&](std::string& reason) { return selection_->Delete(row - 1, reason); });
    if (SUCCEEDED(result)) deleted_.insert(row);
    return result;
}

std::string Rowset::RowName(HROW row) {
    const Accessor* const accessor = FindAccessor(lastAccessor_);
    const bool known = accessor != nullptr && SUCCEEDED(selection_->Read(row - 1, values_));
    return known ? RowText(*selection_, *accessor, values_) : selection_->Title();
}

HRESULT Rowset::DeleteRows(HCHAPTER /*chapter*/, DBCOUNTITEM count, const HROW* rows,
                           DWORD* statuses) {
    const HRESULT allowed = CheckChange(DBPROPVAL_UP_DELETE);
    if (FAILED(allowed)) return allowed;
    HRESULT result = S_OK;
    for (DBCOUNTITEM i = 0; i < count; ++i) {
        const HRESULT one = DeleteRow(rows[i]);
        if (statuses != nullptr)
            statuses[i] = SUCCEEDED(one) ? DBSTATUS_S_OK : DBSTATUS_E_BADSTATUS;
        if (FAILED(one)) result = count == 1 ? one : DB_E_ERRORSOCCURRED;
    }
    return result;
}

}  // namespace oledb
