#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "velkan/app/NotificationCenter.h"

using namespace Velkan;

namespace {

// Records every delivery into a shared log as "label:name:data".
struct Recorder : IObservable {
    Recorder(std::vector<std::wstring>& log, const wchar_t* label) : log(log), label(label) {}

    void OnNotify(CNotification& n) override {
        log.push_back(label + L":" + n.GetName() + L":" + std::to_wstring(n.GetData()));
        lastSender = n.GetSender();
        lastName = n.GetName();
        if (onNotify) onNotify(n);
    }

    std::vector<std::wstring>& log;
    std::wstring label;
    IObservable* lastSender = nullptr;
    LPCWSTR lastName = nullptr;
    std::function<void(CNotification&)> onNotify;
};

// Shows which names the center walks when an observer leaves everywhere.
struct TracingCenter : CNotificationCenter {
    using CNotificationCenter::RemoveObserver;
    BOOL RemoveObserver(LPCWSTR name, IObservable& observer) override {
        visited.push_back(name);
        return CNotificationCenter::RemoveObserver(name, observer);
    }
    void PostNotification(CNotification& n) override {
        ++posts;
        CNotificationCenter::PostNotification(n);
    }
    using CNotificationCenter::PostNotification;
    std::vector<std::wstring> visited;
    int posts = 0;
};

}  // namespace

TEST(NotificationCenter, DeliversOnceInRegistrationOrderWithTheNotificationsFields) {
    std::vector<std::wstring> log;
    Recorder first(log, L"first"), second(log, L"second"), sender(log, L"sender");
    CNotificationCenter center;
    EXPECT_TRUE(center.AddObserver(L"Vlk.Test", second));
    EXPECT_TRUE(center.AddObserver(L"Vlk.Test", first));
    EXPECT_FALSE(center.AddObserver(L"Vlk.Test", second));  // already there

    static const wchar_t name[] = L"Vlk.Test";
    center.PostNotification(name, &sender, 7);
    EXPECT_EQ((std::vector<std::wstring>{L"second:Vlk.Test:7", L"first:Vlk.Test:7"}), log);
    EXPECT_EQ(&sender, first.lastSender);
    EXPECT_EQ(name, first.lastName);  // the name is passed on, not copied

    log.clear();
    center.PostNotification(L"Nobody.Listens", nullptr, 1);
    EXPECT_TRUE(log.empty());
}

TEST(NotificationCenter, NamesIgnoreCase) {
    std::vector<std::wstring> log;
    Recorder r(log, L"r");
    CNotificationCenter center;
    center.AddObserver(L"Vlk.PaletteWndClosed", r);
    EXPECT_FALSE(center.AddObserver(L"vlk.palettewndclosed", r));
    center.PostNotification(L"VLK.PALETTEWNDCLOSED", nullptr, 3);
    EXPECT_EQ(1u, log.size());
}

TEST(NotificationCenter, RemovingObservers) {
    std::vector<std::wstring> log;
    Recorder a(log, L"a"), b(log, L"b");
    TracingCenter center;
    EXPECT_FALSE(center.RemoveObserver(L"ghost", a));  // leaves an empty entry behind
    center.AddObserver(L"c", a);
    center.AddObserver(L"B", a);
    center.AddObserver(L"a", a);
    center.AddObserver(L"a", b);
    EXPECT_TRUE(center.RemoveObserver(L"a", a));
    EXPECT_FALSE(center.RemoveObserver(L"a", a));

    center.visited.clear();
    center.RemoveObserver(a);
    // Every entry, the empty one too, in key order.
    EXPECT_EQ((std::vector<std::wstring>{L"a", L"B", L"c", L"ghost"}), center.visited);

    center.PostNotification(L"a", nullptr, 0);
    center.PostNotification(L"B", nullptr, 0);
    center.PostNotification(L"c", nullptr, 0);
    EXPECT_EQ((std::vector<std::wstring>{L"b:a:0"}), log);
    EXPECT_EQ(3, center.posts);  // the convenience form goes through the virtual one
}

TEST(NotificationCenter, DeliveryWorksOnASnapshotOfTheObservers) {
    std::vector<std::wstring> log;
    Recorder adder(log, L"adder"), late(log, L"late"), remover(log, L"remover"), victim(log, L"victim");
    CNotificationCenter center;
    adder.onNotify = [&](CNotification&) { center.AddObserver(L"n", late); };
    remover.onNotify = [&](CNotification&) { center.RemoveObserver(L"n", victim); };
    center.AddObserver(L"n", adder);
    center.AddObserver(L"n", remover);
    center.AddObserver(L"n", victim);

    center.PostNotification(L"n", nullptr, 1);
    // The new observer waits for the next delivery; the removed one still
    // gets this one.
    EXPECT_EQ((std::vector<std::wstring>{L"adder:n:1", L"remover:n:1", L"victim:n:1"}), log);

    log.clear();
    center.PostNotification(L"n", nullptr, 2);
    EXPECT_EQ((std::vector<std::wstring>{L"adder:n:2", L"remover:n:2", L"late:n:2"}), log);
}

TEST(NotificationCenter, DefaultCenterIsOneObjectForTheProcess) {
    std::vector<std::wstring> log;
    Recorder r(log, L"r");
    CNotificationCenter& center = CNotificationCenter::GetDefault();
    EXPECT_EQ(&center, &CNotificationCenter::GetDefault());
    center.AddObserver(L"Default.Test", r);
    CNotificationCenter::GetDefault().PostNotification(L"Default.Test", nullptr, 5);
    center.RemoveObserver(r);
    EXPECT_EQ((std::vector<std::wstring>{L"r:Default.Test:5"}), log);
}
