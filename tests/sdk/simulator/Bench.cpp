#include "tests/sdk/simulator/Bench.h"

#include <arv.h>

Bench::Bench() : m_device(arv_fake_camera_new("BENCH")), m_memory(m_device) {}

Bench::~Bench()
{
    g_object_unref(m_device);
}

void Bench::pulse(std::uint32_t signal, unsigned count)
{
    m_bus.pulse(signal, count);
    m_bus.publish();
}

void Bench::setLevel(std::uint32_t signal, bool high)
{
    m_bus.setLevel(signal, high);
    m_bus.publish();
}

void Bench::takeFrames()
{
    if (!m_holding && m_memory.takeCommand(ZalSim::Registers::AravisSendFrame))
        ++m_frames;
}
