#pragma once

#include "platform/oledb/CComPtr.h"
#include "platform/oledb/oledb.h"

/// What is stored while it lives goes into the project database together, or not at all without
/// Commit. Rows that the database refuses by themselves do not keep the others from it. Where a
/// transaction runs already, or none is offered, it does nothing.
class CStoreTransaction {
public:
    CStoreTransaction();
    ~CStoreTransaction();
    CStoreTransaction(const CStoreTransaction&) = delete;
    CStoreTransaction& operator=(const CStoreTransaction&) = delete;

    /// False when nothing of it could be written.
    bool Commit();
    /// Ends it without writing, so that nobody waits for it while a message is read.
    void Abort();

private:
    CComPtr<ITransactionLocal> running_;  ///< the one started here
};
