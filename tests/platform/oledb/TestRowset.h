#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "platform/oledb/CComPtr.h"
#include "platform/oledb/last_error.h"
#include "platform/oledb/oledb.h"
#include "platform/win32/code_page.h"

template <class Interface>
class Ref : public CComPtr<Interface> {
public:
    Ref() = default;
    explicit Ref(Interface* owned) { this->Attach(owned); }

    template <class Other>
    Ref<Other> As(REFIID riid) const {
        void* found = nullptr;
        (*this)->QueryInterface(riid, &found);
        return Ref<Other>(static_cast<Other*>(found));
    }
};

/// The data source for a string (UTF-8), or the reason why there is none.
inline HRESULT MakeSource(const std::string& initString, Ref<IDBInitialize>& source) {
    void* made = nullptr;
    HRESULT result = CoCreateInstance(CLSID_MSDAINITIALIZE, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IDataInitialize, &made);
    if (FAILED(result)) return result;
    const Ref<IDataInitialize> initialize(static_cast<IDataInitialize*>(made));
    IUnknown* out = nullptr;
    result = initialize->GetDataSource(nullptr, CLSCTX_INPROC_SERVER,
                                       win32::Utf16FromUtf8(initString).c_str(), IID_IDBInitialize,
                                       &out);
    source = Ref<IDBInitialize>(static_cast<IDBInitialize*>(out));
    return result;
}

/// A session over a data source that opens; fails the test when it does not.
inline Ref<IDBCreateCommand> OpenSession(const std::string& initString) {
    Ref<IDBInitialize> source;
    EXPECT_EQ(MakeSource(initString, source), S_OK);
    EXPECT_EQ(source->Initialize(), S_OK) << oledb::LastErrorText();
    IUnknown* made = nullptr;
    EXPECT_EQ(source.As<IDBCreateSession>(IID_IDBCreateSession)
                  ->CreateSession(nullptr, IID_IDBCreateCommand, &made),
              S_OK);
    return Ref<IDBCreateCommand>(static_cast<IDBCreateCommand*>(made));
}

inline DBPROP MakeProperty(DBPROPID id, VARTYPE type, LONG value,
                           DBPROPOPTIONS options = DBPROPOPTIONS_REQUIRED) {
    DBPROP property{};
    property.dwPropertyID = id;
    property.dwOptions = options;
    property.vValue.vt = type;
    if (type == VT_BOOL) {
        property.vValue.boolVal = static_cast<VARIANT_BOOL>(value);
    } else {
        property.vValue.lVal = value;
    }
    return property;
}

/// What the tables of the plug-in require.
inline std::vector<DBPROP> AllChanges() {
    return {MakeProperty(DBPROP_CANHOLDROWS, VT_BOOL, VARIANT_TRUE),
            MakeProperty(DBPROP_CANFETCHBACKWARDS, VT_BOOL, VARIANT_TRUE),
            MakeProperty(DBPROP_IRowsetScroll, VT_BOOL, VARIANT_TRUE),
            MakeProperty(DBPROP_IRowsetChange, VT_BOOL, VARIANT_TRUE),
            MakeProperty(DBPROP_UPDATABILITY, VT_I4, 7)};
}

inline DBBINDING Bind(DBORDINAL ordinal, DBTYPE type, std::size_t value, std::size_t bytes,
                      std::size_t status = static_cast<std::size_t>(-1)) {
    DBBINDING binding{};
    binding.iOrdinal = ordinal;
    binding.obValue = value;
    binding.cbMaxLen = bytes;
    binding.wType = type;
    binding.dwPart = DBPART_VALUE;
    if (status != static_cast<std::size_t>(-1)) {
        binding.dwPart |= DBPART_STATUS;
        binding.obStatus = status;
    }
    return binding;
}

/// A row set with one accessor.
class TestRowset {
public:
    HRESULT Open(IDBCreateCommand& session, const std::string& sql,
                 std::vector<DBPROP> properties = AllChanges()) {
        IUnknown* made = nullptr;
        HRESULT result = session.CreateCommand(nullptr, IID_ICommandText, &made);
        if (FAILED(result)) return result;
        const Ref<ICommandText> command(static_cast<ICommandText*>(made));
        command->SetCommandText(DBGUID_DEFAULT, win32::Utf16FromUtf8(sql).c_str());
        DBPROPSET set{properties.data(), static_cast<ULONG>(properties.size()), DBPROPSET_ROWSET};
        result = command.As<ICommandProperties>(IID_ICommandProperties)->SetProperties(1, &set);
        if (FAILED(result)) return result;
        IUnknown* out = nullptr;
        result = command->Execute(nullptr, IID_IRowset, nullptr, nullptr, &out);
        rows = Ref<IRowset>(static_cast<IRowset*>(out));
        if (FAILED(result)) return result;
        accessors = rows.As<IAccessor>(IID_IAccessor);
        change = rows.As<IRowsetChange>(IID_IRowsetChange);
        return result;
    }
    HRESULT SetBindings(const std::vector<DBBINDING>& bindings) {
        return accessors->CreateAccessor(DBACCESSOR_ROWDATA, bindings.size(), bindings.data(), 0,
                                         &accessor, nullptr);
    }
    /// Releases the row held and fetches another one: forwards for 1, backwards for -1.
    HRESULT Move(DBROWCOUNT count = 1, DBROWOFFSET offset = 0) {
        if (row != DB_NULL_HROW) rows->ReleaseRows(1, &row, nullptr, nullptr, nullptr);
        row = DB_NULL_HROW;
        HROW* place = &row;
        DBCOUNTITEM obtained = 0;
        return rows->GetNextRows(DB_NULL_HCHAPTER, offset, count, &obtained, &place);
    }
    HRESULT Read(void* record) { return rows->GetData(row, accessor, record); }
    HRESULT MoveAndRead(void* record) {
        const HRESULT result = Move();
        return result == S_OK ? Read(record) : result;
    }
    /// Binds the first column as an integer and reads it from the next row.
    HRESULT ReadNumber(LONG& number) {
        const HRESULT bound = SetBindings({Bind(1, DBTYPE_I4, 0, 4)});
        return bound == S_OK ? MoveAndRead(&number) : bound;
    }
    HRESULT Set(void* record) { return change->SetData(row, accessor, record); }
    HRESULT Insert(void* record) {
        return change->InsertRow(DB_NULL_HCHAPTER, accessor, record, nullptr);
    }
    HRESULT Delete() { return change->DeleteRows(DB_NULL_HCHAPTER, 1, &row, nullptr); }

    Ref<IRowset> rows;
    Ref<IAccessor> accessors;
    Ref<IRowsetChange> change;  ///< null when it is not offered
    HACCESSOR accessor = DB_NULL_HACCESSOR;
    HROW row = DB_NULL_HROW;
};
