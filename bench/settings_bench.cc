// The merge of a hostile record, option access, and what they are measured against.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <random>

#include "platform/seams/environment.h"
#include "platform/seams/system_facts.h"
#include "settings/defaults.h"
#include "settings/merge.h"
#include "settings/options.h"

namespace {

DriverDevMode Default()
{
    DriverDevMode record;
    BuildDefaultSettings(&record, u"Ordana Quillet 4820E", u"", 0);
    return record;
}

// A record that the merge takes whole, with every field at random.
DriverDevMode Hostile()
{
    DriverDevMode record;
    std::mt19937 random(4820);
    auto* bytes = reinterpret_cast<std::uint8_t*>(&record);
    for (std::size_t i = 0; i < RecordSize; ++i) bytes[i] = static_cast<std::uint8_t>(random());
    record.dmSpecVersion = RecordSpecVersion1025;
    record.dmDriverVersion = RecordDriverVersion;
    record.dmSize = RecordPublicSize;
    record.dmDriverExtra = RecordPrivateSize;
    record.dmFields = 0xFFFFFFFF;
    return record;
}

void CopyAndAllocation(benchmark::State& state)
{
    const DriverDevMode source = Hostile();
    for (auto _ : state) {
        void* copy = std::malloc(RecordSize);
        std::memcpy(copy, &source, RecordSize);
        benchmark::DoNotOptimize(copy);
        benchmark::ClobberMemory();
        std::free(copy);
    }
}
BENCHMARK(CopyAndAllocation);

void CopyAndPlatformAllocation(benchmark::State& state)
{
    const DriverDevMode source = Hostile();
    for (auto _ : state) {
        void* copy = GlobalAlloc(GPTR, RecordSize);
        std::memcpy(copy, &source, RecordSize);
        benchmark::DoNotOptimize(copy);
        benchmark::ClobberMemory();
        GlobalFree(copy);
    }
}
BENCHMARK(CopyAndPlatformAllocation);

void MergeHostileRecord(benchmark::State& state)
{
    DriverDevMode target = Default();
    const DriverDevMode source = Hostile();
    for (auto _ : state) {
        benchmark::DoNotOptimize(MergeSettings(&target, PublicPart(&source)));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MergeHostileRecord);

void ReadOption(benchmark::State& state)
{
    DriverDevMode record = Default();
    CurrentSettings = &record;
    WORD value = 0;
    for (auto _ : state) {
        GetOption(ImageRotatedOption.group, ImageRotatedOption.key, &value);
        benchmark::DoNotOptimize(value);
    }
    CurrentSettings = nullptr;
}
BENCHMARK(ReadOption);

void WriteOption(benchmark::State& state)
{
    DriverDevMode record = Default();
    CurrentSettings = &record;
    const WORD value = 1;
    for (auto _ : state) {
        SetOption(ImageRotatedOption.group, ImageRotatedOption.key, &value);
        benchmark::ClobberMemory();
    }
    CurrentSettings = nullptr;
}
BENCHMARK(WriteOption);

}  // namespace

BENCHMARK_MAIN();
