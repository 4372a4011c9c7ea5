// What the program's own work costs on a simulated desktop, beside the platform calls that it makes: ticks of
// every kind, start-up without the calibration, rewriting for the ear.
//
// The argument `calls` of a benchmark says how often each platform call is made: 1, 11, or 0 for the program
// straight on the simulated platform. The calls of one tick by themselves are a tenth of the difference of
// the first two.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <string_view>

#include "app/mouse.h"
#include "sim/machine.h"
#include "sim/script.h"
#include "sim/sim_platform.h"
#include "speech/phonetics.h"
#include "tests/support/watched_platform.h"

namespace {

using namespace pointalk;

// Makes each call several times, but for those that a second time would leave something behind.
class Repeater final : public testing::Watcher {
 public:
  explicit Repeater(int times) : times_(times) {}

  bool Enter(const char* call) override {
    repeated_ = std::string_view(call) != "RemoteMemory::Allocate";
    return true;
  }
  void Leave() override {}
  int Times() override { return repeated_ ? times_ : 1; }

 private:
  int times_;
  bool repeated_ = true;
};

std::string ScriptWith(const std::string& windows) {
  return R"({"machine":{"spinMilliseconds":100,"files":{"current\\DidWarn.flg":"x","program\\PTK.ini":"VerticalVolume = 80\r\n)"
         R"(HorizontalVolume = 70\r\nMouseMelodyFormat = 0\r\n"}},"windows":[)" +
         windows + "]}";
}

// One run of the program on a machine.
class Run {
 public:
  Run(sim::Machine& machine, int calls)
      : platform(machine),
        repeater(calls),
        watched(platform.Seam(), repeater),
        form(calls == 0 ? platform.Seam() : watched.Get()) {
    form.Form_Load();
  }

  Mouse& Form() { return form; }

 private:
  sim::SimPlatform platform;
  Repeater repeater;
  testing::WatchedPlatform watched;
  Mouse form;
};

// A running program over windows that a script describes.
class Running {
 public:
  explicit Running(const std::string& windows, int calls = 0)
      : machine(sim::ReadScript(ScriptWith(windows))), run(machine, calls) {}

  void TickAt(std::int32_t x, std::int32_t y) {
    machine.pointer = {x, y};
    run.Form().Timer1_Timer();
    machine.transcript.Clear();
  }

 private:
  sim::Machine machine;
  Run run;
};

void WithAndWithoutRepetition(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("calls")->Arg(0)->Arg(1)->Arg(11);
}

constexpr const char* kButton = R"({"id":1,"class":"Button","title":"&OK","rect":[0,0,1024,768]})";

void Resting(benchmark::State& state) {
  Running running(kButton, static_cast<int>(state.range(0)));
  for (int tick = 0; tick < 20; ++tick) running.TickAt(500, 300);
  for (auto _ : state) running.TickAt(500, 300);
}
BENCHMARK(Resting)->Apply(WithAndWithoutRepetition);

void MovingWithinACell(benchmark::State& state) {
  Running running("", static_cast<int>(state.range(0)));
  for (std::int32_t step = 0; auto _ : state) running.TickAt(500 + (step++ & 1), 300);
}
BENCHMARK(MovingWithinACell)->Apply(WithAndWithoutRepetition);

void MovingAcrossCells(benchmark::State& state) {
  Running running("", static_cast<int>(state.range(0)));
  for (std::int32_t step = 0; auto _ : state) running.TickAt(500 + (step++ & 1) * 200, 300);
}
BENCHMARK(MovingAcrossCells)->Apply(WithAndWithoutRepetition);

// From one place of the window to another, so that lists tell another item and edit fields another line each
// time.
void Describing(benchmark::State& state, const char* window) {
  Running running(window, static_cast<int>(state.range(0)));
  for (std::int32_t step = 0; auto _ : state) running.TickAt(41, 24 + (step++ & 1) * 16);
}
BENCHMARK_CAPTURE(Describing, button, kButton)->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(Describing, static_text,
                  R"({"id":1,"class":"Static","title":"Name:","rect":[0,0,1024,768]})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(Describing, combo_box,
                  R"({"id":1,"class":"ComboBox","title":"Blue","rect":[0,0,1024,768]})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(Describing, tree_view,
                  R"({"id":1,"class":"SysTreeView32","title":"Root","rect":[0,0,1024,768]})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(Describing, other_control,
                  R"({"id":1,"class":"ScrollBar","title":"Bar","rect":[0,0,1024,768]})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(
    Describing, menu,
    R"({"id":1,"class":"Afx","rect":[0,0,1024,768],"menu":{"items":[{"text":"&File","rect":[0,0,90,90]}]}})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(
    Describing, list_box,
    R"({"id":1,"class":"ListBox","rect":[0,0,1024,768],"listBox":{"items":["one","two","three","four"]}})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(
    Describing, list_view,
    R"({"id":1,"class":"SysListView32","rect":[0,0,1024,768],"listView":{"items":[{"text":"Mail",)"
    R"("icon":[0,0,90,90],"label":[0,90,90,110]}]}})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(
    Describing, edit,
    R"({"id":1,"class":"ThunderTextBox","rect":[0,0,1024,768],"edit":{"text":"one two\r\nthree four\r\nfive"}})")
    ->Apply(WithAndWithoutRepetition);
BENCHMARK_CAPTURE(
    Describing, rich_edit,
    R"({"id":1,"class":"RichEdit20A","rect":[0,0,1024,768],"richEdit":{"text":"one two\r\nthree four\r\nfive"}})")
    ->Apply(WithAndWithoutRepetition);

// Ten passes are the whole calibration here.
void StartingUp(benchmark::State& state) {
  sim::Machine machine(sim::ReadScript(ScriptWith(kButton)));
  const auto files = machine.setup.files;
  for (auto _ : state) {
    machine.setup.files = files;
    machine.transcript.Clear();
    Run run(machine, static_cast<int>(state.range(0)));
    benchmark::DoNotOptimize(&run);
  }
}
BENCHMARK(StartingUp)->Apply(WithAndWithoutRepetition);

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

}  // namespace
