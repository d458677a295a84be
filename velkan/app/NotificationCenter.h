#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

class CNotification;

/// Receives the notifications it has registered for.
class IObservable {
public:
    /// Called synchronously for each notification posted under a name the
    /// object observes.
    virtual void OnNotify(CNotification& notification) = 0;

protected:
    /// Only derived classes construct, copy and destroy an observer.
    ///@{
    IObservable() = default;
    IObservable(const IObservable&) = default;
    IObservable(IObservable&&) = default;
    IObservable& operator=(const IObservable&) = default;
    IObservable& operator=(IObservable&&) = default;
    ~IObservable() = default;
    ///@}
};

/// One delivery: a name (not copied: it must outlive the delivery), the
/// sender (may be null) and a value.
class CNotification {
public:
    CNotification() = default;  ///< No name, no sender, 0.
    /// The three parts; name is kept as a pointer.
    CNotification(LPCWSTR name, IObservable* sender, DWORD_PTR data) : m_name(name), m_sender(sender), m_data(data) {}

    LPCWSTR GetName() const { return m_name; }           ///< The name it was posted under.
    IObservable* GetSender() const { return m_sender; }  ///< The sender, or null.
    /// The value; as wide as a pointer, so senders can pass addresses.
    DWORD_PTR GetData() const { return m_data; }

private:
    LPCWSTR m_name = nullptr;
    IObservable* m_sender = nullptr;
    DWORD_PTR m_data = 0;  // as wide as a pointer: senders pass addresses
};

/// Named publish/subscribe on the user-interface thread, without locks.
///
/// Names are compared as CString's < does, so they ignore case. Delivery is
/// synchronous, in registration order, over a copy of the observer list:
/// observers added or removed while a delivery runs do not change it. An
/// observer must unregister before it is destroyed. Observers are not owned.
class VELKAN_API CNotificationCenter {
public:
    CNotificationCenter();           ///< A center without observers.
    virtual ~CNotificationCenter();  ///< Forgets the observers; does not notify them.

    CNotificationCenter(const CNotificationCenter&) = delete;             ///< Not copyable.
    CNotificationCenter& operator=(const CNotificationCenter&) = delete;  ///< Not copyable.

    /// The process's center (the application object's once one exists).
    static CNotificationCenter& GetDefault();

    /// Registers observer under name. FALSE when the observer is already
    /// registered under the name.
    virtual BOOL AddObserver(LPCWSTR name, IObservable& observer);
    /// Removes observer from every name.
    virtual void RemoveObserver(IObservable& observer);
    /// Removes observer from one name. FALSE when the observer was not
    /// registered under the name.
    virtual BOOL RemoveObserver(LPCWSTR name, IObservable& observer);
    /// Delivers a notification to the observers of its name, in
    /// registration order, before returning.
    ///@{
    virtual void PostNotification(LPCWSTR name, IObservable* sender, DWORD_PTR data);
    virtual void PostNotification(CNotification& notification);
    ///@}

protected:
    /// The observers of one name, in registration order.
    using ObserverList = std::vector<IObservable*>;

    /// The list of a name. Creates an empty entry for a new name; entries
    /// are never pruned. A null name shares the entry of the empty name.
    ObserverList& GetObserversListForName(LPCWSTR name);
    /// observer is in list.
    static BOOL IsObserverInList(const ObserverList& list, IObservable& observer);

private:
    std::map<CString, ObserverList> m_observers;
};

}  // namespace Velkan
