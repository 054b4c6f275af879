#include "tests/sdk/simulator/Bench.h"

#include <arv.h>

Bench::Bench() : device(arv_fake_camera_new("BENCH")), memory(device) {}

Bench::~Bench()
{
    g_object_unref(device);
}

void Bench::Pulse(std::uint32_t signal, unsigned count)
{
    bus.Pulse(signal, count);
    bus.Publish();
}

void Bench::SetLevel(std::uint32_t signal, bool high)
{
    bus.SetLevel(signal, high);
    bus.Publish();
}

void Bench::TakeFrames()
{
    if (!holding && memory.TakeCommand(ZalSim::Registers::AravisSendFrame))
        ++frames;
}
