// Aravis keeps one list of devices, which a discovery replaces while others may be reading it. Who
// opens a camera by a name looks into that list.
// GLib uses Qt's keywords as names, so it comes first.
#include <arv.h>

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

#include <dlfcn.h>

#include <thread>

using namespace BridgeTest;
using ZalCPP::Camera;
using ZalCPP::CameraSystem;

namespace {

/// How many threads are inside the list of devices at the same time. Each waits there a moment for
/// another one to come.
class Visitors
{
public:
    void enter()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_visits;
        m_most = std::max(m_most, ++m_inside);
        m_changed.notify_all();
        m_changed.wait_for(lock, std::chrono::milliseconds(100), [this] { return m_inside > 1; });
    }
    void leave()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        --m_inside;
    }
    void reset()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_most = m_visits = 0;
    }
    int mostAtATime() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_most;
    }
    int count() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_visits;
    }

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_inside = 0;
    int m_most = 0;
    int m_visits = 0;
};

Visitors& visitors()
{
    static Visitors shared;
    return shared;
}

/// One call into the list. What Aravis calls from there is part of it.
class Visit
{
public:
    Visit()
    {
        if (depth()++ == 0)
            visitors().enter();
    }
    ~Visit()
    {
        if (--depth() == 0)
            visitors().leave();
    }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;

private:
    static int& depth()
    {
        static thread_local int calls = 0;
        return calls;
    }
};

template <typename Function> Function* original(Function*, const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// In place of the functions of the library, which they call.
extern "C" ArvDevice* arv_open_device(const char* id, GError** error)
{
    const Visit visit;
    return original(arv_open_device, "arv_open_device")(id, error);
}

extern "C" void arv_update_device_list()
{
    const Visit visit;
    original(arv_update_device_list, "arv_update_device_list")();
}

extern "C" unsigned int arv_get_n_devices()
{
    const Visit visit;
    return original(arv_get_n_devices, "arv_get_n_devices")();
}

using Action = std::function<void()>;
Q_DECLARE_METATYPE(Action)

class tst_OpeningByName : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { visitors().reset(); }
    void cleanup() { m_opened.clear(); }
    void cleanupTestCase() { m_server.reset(); }

    void oneThreadAtATimeLooksIntoTheList_data();
    void oneThreadAtATimeLooksIntoTheList();
    void cameraThatIsKnownIsOpenedWithoutADiscovery();
    void cameraThatIsNotKnownIsDiscovered();

private:
    void open(const std::string& id);

    std::unique_ptr<NastyCamera> m_server;
    int m_devices = 0;
    std::mutex m_mutex;
    std::vector<std::unique_ptr<Camera>> m_opened;
};

void tst_OpeningByName::initTestCase()
{
    m_server = std::make_unique<NastyCamera>();
    m_devices = static_cast<int>(CameraSystem::List().size());
    QVERIFY(m_devices > 0);
}

// The camera has one controller only; the other thread is told so.
void tst_OpeningByName::open(const std::string& id)
{
    std::string error;
    auto camera = CameraSystem::Open(id, error);
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (camera)
        m_opened.push_back(std::move(camera));
}

void tst_OpeningByName::oneThreadAtATimeLooksIntoTheList_data()
{
    QTest::addColumn<Action>("other");
    QTest::newRow("another opens by name") << Action([this] { open(NastyCamera::Serial); });
    QTest::newRow("another opens by address") << Action([this] { open(NastyCamera::Address); });
    QTest::newRow("another opens the first one") << Action([this] { open({}); });
    QTest::newRow("another lists") << Action([] { CameraSystem::List(); });
}

void tst_OpeningByName::oneThreadAtATimeLooksIntoTheList()
{
    QFETCH(Action, other);
    std::thread thread(other);
    open(NastyCamera::Serial);
    thread.join();
    QCOMPARE(m_opened.size(), std::size_t(1));
    QVERIFY(visitors().count() >= 3);
    QCOMPARE(visitors().mostAtATime(), 1);
}

// One look at the list, and the opening itself.
void tst_OpeningByName::cameraThatIsKnownIsOpenedWithoutADiscovery()
{
    open(NastyCamera::Serial);
    QCOMPARE(m_opened.size(), std::size_t(1));
    QCOMPARE(visitors().count(), m_devices + 2);
}

void tst_OpeningByName::cameraThatIsNotKnownIsDiscovered()
{
    m_server.reset();
    QVERIFY(CameraSystem::List().empty());
    m_server = std::make_unique<NastyCamera>();
    open(NastyCamera::Serial);
    QCOMPARE(m_opened.size(), std::size_t(1));
}

QTEST_GUILESS_MAIN(tst_OpeningByName)
#include "tst_OpeningByName.moc"
