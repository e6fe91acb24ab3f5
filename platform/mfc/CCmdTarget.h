#pragma once

#include "platform/win32/win_types.h"

class CCmdTarget;
struct AFX_CMDHANDLERINFO;

using AFX_PMSG = void (CCmdTarget::*)();
struct AFX_MSGMAP_ENTRY {
    int nCode;
    UINT nID;
    AFX_PMSG pfn;
};
/// A class's handlers, ended by an entry without one, and where to find those of its base.
struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

inline constexpr int CN_COMMAND = 0;
inline constexpr int BN_CLICKED = 0;
inline constexpr int LBN_SELCHANGE = 1;

/// Something that commands are routed to by its class's message map.
class CCmdTarget {
public:
    CCmdTarget() = default;
    virtual ~CCmdTarget() = default;
    CCmdTarget(const CCmdTarget&) = delete;
    CCmdTarget& operator=(const CCmdTarget&) = delete;

    /// Runs the handler for `nCode` of control or command `nID`, the most derived class's first.
    /// FALSE when there is none. The last two arguments are null in every call of ours.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    static const AFX_MSGMAP* GetThisMessageMap();

protected:
    virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
};

#define afx_msg

#define DECLARE_MESSAGE_MAP()                     \
public:                                           \
    static const AFX_MSGMAP* GetThisMessageMap(); \
                                                  \
protected:                                        \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                       \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                              \
        return GetThisMessageMap();                                                  \
    }                                                                                \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                \
        using ThisClass = theClass;                                                  \
        static const AFX_MSGMAP* (*const baseMap)() = &baseClass::GetThisMessageMap; \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define ON_BN_CLICKED(id, memberFunction) \
    {BN_CLICKED, id, static_cast<AFX_PMSG>(&ThisClass::memberFunction)},
#define ON_LBN_SELCHANGE(id, memberFunction) \
    {LBN_SELCHANGE, id, static_cast<AFX_PMSG>(&ThisClass::memberFunction)},

#define END_MESSAGE_MAP()                                    \
    { 0, 0, nullptr }                                        \
    }                                                        \
    ;                                                        \
    static const AFX_MSGMAP messageMap = {baseMap, entries}; \
    return &messageMap;                                      \
    }
