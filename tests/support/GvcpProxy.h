#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// Stands between GigE Vision clients and a camera on the loopback interface, as a bad network
/// does: control datagrams of either direction pass, get lost, come twice or come late. Clients
/// open the camera under the proxy's address. Each client reaches the camera from a port of its
/// own, so that the camera can tell who controls it. Streams pass beside the proxy.
///
/// Works on a thread of its own until destroyed. At first everything passes.
class GvcpProxy
{
public:
    enum class Direction
    {
        ToCamera,
        ToClient
    };
    enum class Fate
    {
        Pass,
        Drop,
        Duplicate,
        Delay
    };
    using Datagram = std::vector<unsigned char>;
    /// Called for each datagram, on the proxy's thread.
    using Judge = std::function<Fate(Direction, const Datagram&)>;

    /// Shares of all datagrams, from 0 to 1.
    struct Weather
    {
        double drop = 0;
        double duplicate = 0;
        double delay = 0;
        std::uint32_t seed = 1; ///< The same seed does the same to the same datagrams.
    };

    struct Counts
    {
        std::uint64_t passed = 0;
        std::uint64_t dropped = 0;
        std::uint64_t duplicated = 0;
        std::uint64_t delayed = 0;
    };

    static constexpr const char* Address = "127.0.0.2";
    static constexpr const char* CameraAddress = "127.0.0.1";
    static constexpr std::uint16_t Port = 3956;

    GvcpProxy();
    ~GvcpProxy();
    GvcpProxy(const GvcpProxy&) = delete;
    GvcpProxy& operator=(const GvcpProxy&) = delete;

    /// False when the address is taken.
    bool isRunning() const;
    /// How long a delayed datagram is kept.
    void setDelay(int milliseconds);
    /// Null lets everything pass.
    void setJudge(Judge judge);
    void setWeather(const Weather& weather) { setJudge(judgeOf(weather)); }
    /// Since the proxy was made.
    Counts counts() const;

    static Judge judgeOf(const Weather& weather);

private:
    class Private;
    std::unique_ptr<Private> d;
};
