#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

class CNotification;

// Receives the notifications it has registered for.
class IObservable {
public:
    virtual void OnNotify(CNotification& notification) = 0;

protected:
    IObservable() = default;
    IObservable(const IObservable&) = default;
    IObservable(IObservable&&) = default;
    IObservable& operator=(const IObservable&) = default;
    IObservable& operator=(IObservable&&) = default;
    ~IObservable() = default;
};

// One delivery: a name (not copied: it must outlive the delivery), the
// sender (may be null) and a value.
class CNotification {
public:
    CNotification() = default;
    CNotification(LPCWSTR name, IObservable* sender, DWORD_PTR data) : m_name(name), m_sender(sender), m_data(data) {}

    LPCWSTR GetName() const { return m_name; }
    IObservable* GetSender() const { return m_sender; }
    DWORD_PTR GetData() const { return m_data; }

private:
    LPCWSTR m_name = nullptr;
    IObservable* m_sender = nullptr;
    DWORD_PTR m_data = 0;  // as wide as a pointer: senders pass addresses
};

// Named publish/subscribe on the user-interface thread, without locks.
//
// Names are compared as CString's < does, so they ignore case. Delivery is
// synchronous, in registration order, over a copy of the observer list:
// observers added or removed while a delivery runs do not change it. An
// observer must unregister before it is destroyed. Observers are not owned.
class VELKAN_API CNotificationCenter {
public:
    CNotificationCenter();
    virtual ~CNotificationCenter();

    CNotificationCenter(const CNotificationCenter&) = delete;
    CNotificationCenter& operator=(const CNotificationCenter&) = delete;

    // The process's center (the application object's once one exists).
    static CNotificationCenter& GetDefault();

    // FALSE when the observer is already registered under the name.
    virtual BOOL AddObserver(LPCWSTR name, IObservable& observer);
    virtual void RemoveObserver(IObservable& observer);
    // FALSE when the observer was not registered under the name.
    virtual BOOL RemoveObserver(LPCWSTR name, IObservable& observer);
    virtual void PostNotification(LPCWSTR name, IObservable* sender, DWORD_PTR data);
    virtual void PostNotification(CNotification& notification);

protected:
    using ObserverList = std::vector<IObservable*>;

    // Creates an empty entry for a new name; entries are never pruned.
    ObserverList& GetObserversListForName(LPCWSTR name);
    static BOOL IsObserverInList(const ObserverList& list, IObservable& observer);

private:
    std::map<CString, ObserverList> m_observers;
};

}  // namespace Velkan
