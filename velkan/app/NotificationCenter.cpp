#include "velkan/app/NotificationCenter.h"

#include "velkan/app/App.h"

#include <algorithm>

namespace Velkan {

CNotificationCenter::CNotificationCenter() = default;
CNotificationCenter::~CNotificationCenter() = default;

CNotificationCenter& CNotificationCenter::GetDefault() {
    if (theAppPtr != nullptr) return theAppPtr->GetNotificationCenter();
    // Programs (and tests) without an application object still get one.
    static CNotificationCenter center;
    return center;
}

BOOL CNotificationCenter::AddObserver(LPCWSTR name, IObservable& observer) {
    ObserverList& list = GetObserversListForName(name);
    if (IsObserverInList(list, observer)) return FALSE;
    list.push_back(&observer);
    return TRUE;
}

void CNotificationCenter::RemoveObserver(IObservable& observer) {
    // Keys are copied first: the virtual overload may be one that edits the map.
    std::vector<CString> names;
    names.reserve(m_observers.size());
    for (const auto& entry : m_observers) names.push_back(entry.first);
    for (const CString& name : names) RemoveObserver(name.GetString(), observer);
}

BOOL CNotificationCenter::RemoveObserver(LPCWSTR name, IObservable& observer) {
    ObserverList& list = GetObserversListForName(name);
    auto it = std::find(list.begin(), list.end(), &observer);
    if (it == list.end()) return FALSE;
    list.erase(it);
    return TRUE;
}

void CNotificationCenter::PostNotification(LPCWSTR name, IObservable* sender, DWORD_PTR data) {
    CNotification notification(name, sender, data);
    PostNotification(notification);
}

void CNotificationCenter::PostNotification(CNotification& notification) {
    const ObserverList snapshot = GetObserversListForName(notification.GetName());
    for (IObservable* observer : snapshot) observer->OnNotify(notification);
}

CNotificationCenter::ObserverList& CNotificationCenter::GetObserversListForName(LPCWSTR name) {
    // A null name would be unordered against every key; it shares the
    // entry of the empty name instead.
    return m_observers[CString(name != nullptr ? name : L"")];
}

BOOL CNotificationCenter::IsObserverInList(const ObserverList& list, IObservable& observer) {
    return std::find(list.begin(), list.end(), &observer) != list.end() ? TRUE : FALSE;
}

}  // namespace Velkan
