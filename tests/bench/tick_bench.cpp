// What the program's own work costs on a simulated desktop: ticks of every kind, rewriting for the ear,
// start-up.
#include <benchmark/benchmark.h>

#include <string>

#include "app/mouse.h"
#include "sim/machine.h"
#include "sim/script.h"
#include "sim/sim_platform.h"
#include "speech/phonetics.h"

namespace {

using namespace pointalk;

std::string ScriptWith(const std::string& windows) {
  return R"({"machine":{"spinMilliseconds":100,"files":{"current\\DidWarn.flg":"x","program\\PTK.ini":"VerticalVolume = 80\r\n)"
         R"(HorizontalVolume = 70\r\nMouseMelodyFormat = 0\r\n"}},"windows":[)" +
         windows + "]}";
}

// A running program over windows that a script describes.
class Running {
 public:
  explicit Running(const std::string& windows)
      : machine(sim::ReadScript(ScriptWith(windows))), platform(machine), form(platform.Seam()) {
    form.Form_Load();
  }

  void TickAt(std::int32_t x, std::int32_t y) {
    machine.pointer = {x, y};
    form.Timer1_Timer();
    // What was recorded is of no use here and must not grow.
    machine.transcript = {};
  }

 private:
  sim::Machine machine;
  sim::SimPlatform platform;
  Mouse form;
};

constexpr const char* kButton = R"({"id":1,"class":"Button","title":"&OK","rect":[0,0,1024,768]})";

void RestingTick(benchmark::State& state) {
  Running running(kButton);
  for (int tick = 0; tick < 20; ++tick) running.TickAt(500, 300);
  for (auto _ : state) running.TickAt(500, 300);
}
BENCHMARK(RestingTick);

void MovingWithinACell(benchmark::State& state) {
  Running running("");
  for (std::int32_t step = 0; auto _ : state) running.TickAt(500 + (step++ & 1), 300);
}
BENCHMARK(MovingWithinACell);

void MovingAcrossCells(benchmark::State& state) {
  Running running("");
  for (std::int32_t step = 0; auto _ : state) running.TickAt(500 + (step++ & 1) * 200, 300);
}
BENCHMARK(MovingAcrossCells);

void Describing(benchmark::State& state, const char* window) {
  Running running(window);
  for (std::int32_t step = 0; auto _ : state) running.TickAt(40 + (step++ & 1), 40);
}
BENCHMARK_CAPTURE(Describing, button, kButton);
BENCHMARK_CAPTURE(
    Describing, list_box,
    R"({"id":1,"class":"ListBox","rect":[0,0,1024,768],"listBox":{"items":["one","two","three","four"]}})");
BENCHMARK_CAPTURE(
    Describing, list_view,
    R"({"id":1,"class":"SysListView32","rect":[0,0,1024,768],"listView":{"items":[{"text":"Mail",)"
    R"("icon":[0,0,90,90],"label":[0,90,90,110]}]}})");
BENCHMARK_CAPTURE(
    Describing, edit,
    R"({"id":1,"class":"ThunderTextBox","rect":[0,0,1024,768],"edit":{"text":"one two\r\nthree four\r\nfive"}})");

std::string ManyWindows(std::int64_t count) {
  std::string windows;
  for (std::int64_t id = 1; id <= count; ++id) {
    windows += (id == 1 ? "" : ",");
    windows +=
        R"({"id":)" + std::to_string(id) + R"(,"class":"Static","title":"w","rect":[900,700,901,701]})";
  }
  return windows + R"(,{"id":1000000,"class":"Button","title":"&OK","rect":[0,0,1024,768]})";
}

void DescribingAmongWindows(benchmark::State& state) {
  Running running(ManyWindows(state.range(0)));
  for (std::int32_t step = 0; auto _ : state) running.TickAt(40 + (step++ & 1), 40);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(DescribingAmongWindows)->RangeMultiplier(10)->Range(10, 10000)->Complexity();

std::string LongList(std::int64_t count) {
  std::string items;
  for (std::int64_t item = 0; item < count; ++item) items += (item == 0 ? "\"x\"" : ",\"x\"");
  return R"({"id":1,"class":"ListBox","rect":[0,0,1024,768],"listBox":{"items":[)" + items + "]}}";
}

void DescribingALongList(benchmark::State& state) {
  Running running(LongList(state.range(0)));
  for (std::int32_t step = 0; auto _ : state) running.TickAt(40, 40 + (step++ & 1) * 20);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(DescribingALongList)->RangeMultiplier(10)->Range(10, 100000)->Complexity();

void RewritingForTheEar(benchmark::State& state) {
  Text text;
  while (text.size() < static_cast<std::size_t>(state.range(0))) text += u"Save this to C:\\Temp2 now. ";
  text.resize(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(Pronounced(text, false));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(RewritingForTheEar)->RangeMultiplier(10)->Range(10, 100000)->Complexity();

void StartingUp(benchmark::State& state) {
  for (auto _ : state) {
    Running running(kButton);
    benchmark::DoNotOptimize(&running);
  }
}
BENCHMARK(StartingUp);

}  // namespace
