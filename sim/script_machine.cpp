// The key `machine` of a script.
#include <cmath>

#include "sim/code_page.h"
#include "sim/script_reader.h"

namespace pointalk::sim {
namespace {

constexpr double kSecondsOfDay = 86'400;

Text ReadText(const ScriptNode& node) { return node.Unicode(); }

void ReadScreen(const ScriptNode& node, MachineSetup& machine) {
  if (node.ItemCount() != 2) node.Fail("must be [width, height]");
  machine.screenWidth = node.Item(0).Whole<std::int32_t>(1);
  machine.screenHeight = node.Item(1).Whole<std::int32_t>(1);
}

void ReadClock(const ScriptNode& node, MachineSetup& machine) {
  const double seconds = node.NotNegative();
  if (seconds >= kSecondsOfDay) node.Fail("must be below 86400");
  machine.clock = DayMicroseconds(seconds * 1e6);
}

constexpr KeyReader<Sapi5Setup> kSapi5Keys[] = {
    {"voices", [](const ScriptNode& n, Sapi5Setup& s) { s.voices = n.Items(ReadText); }},
    {"rate", [](const ScriptNode& n, Sapi5Setup& s) { s.rate = std::nearbyint(n.Number()) + 0.0; }},
    {"volume", [](const ScriptNode& n, Sapi5Setup&) { n.Number(); }},  // the program never reads it
};

void ReadSapi5(const ScriptNode& node, MachineSetup& machine) {
  machine.sapi5.reset();
  if (!node.IsNull()) ReadKeys(node, kSapi5Keys, machine.sapi5.emplace());
}

void ReadSapi4Voices(const ScriptNode& node, Sapi4Setup& setup) {
  const std::size_t count = node.MemberCount();
  for (std::size_t i = 0; i < count; ++i) {
    const ScriptNode value = node.Member(i);
    setup.voices[ThroughAnsi(value.Key())] = value.Number();
  }
}

constexpr KeyReader<Sapi4Setup> kSapi4Keys[] = {
    {"speed", [](const ScriptNode& n, Sapi4Setup& s) { s.speed = n.Number(); }},
    {"find", ReadSapi4Voices},
    {"positions",
     [](const ScriptNode& n, Sapi4Setup& s) {
       s.positions = n.Items([](const ScriptNode& item) { return item.Number(); });
     }},
};

void ReadSapi4(const ScriptNode& node, MachineSetup& machine) {
  machine.sapi4.reset();
  if (!node.IsNull()) ReadKeys(node, kSapi4Keys, machine.sapi4.emplace());
}

void ReadFiles(const ScriptNode& node, MachineSetup& machine) {
  const std::size_t count = node.MemberCount();
  for (std::size_t i = 0; i < count; ++i) {
    const ScriptNode value = node.Member(i);
    machine.files[value.Key()] = value.Unicode();
  }
}

void CheckKeyPath(const ScriptNode& node, TextView path) {
  const TextView root = path.substr(0, path.find(u'\\'));
  const bool known = std::any_of(std::begin(kRegistryRoots), std::end(kRegistryRoots),
                                 [&](const RegistryRoot& entry) { return entry.name == root; });
  if (!known) node.Fail("must begin with the long name of a root key");
  if (path.ends_with(u'\\') || path.find(u"\\\\") != TextView::npos)
    node.Fail("has an empty part in its path");
}

void ReadRegistryValue(const ScriptNode& value, RegistryNode& key) {
  RegistryEntry& entry = key.entries.emplace_back();
  entry.name = value.Key();
  if (value.IsNumber()) {
    const auto number = value.Whole<std::uint32_t>();
    entry.type = kRegistryNumber;
    for (int i = 0; i < 4; ++i) entry.data.push_back(static_cast<std::byte>(number >> (8 * i)));
    return;
  }
  if (value.Value().kind != Json::Kind::kText) value.Fail("must be a text or a number");
  entry.text = value.Unicode();
  entry.data = SimAnsi().ToBytes(entry.text);
  entry.data.push_back(std::byte{0});
}

void ReadRegistry(const ScriptNode& node, MachineSetup& machine) {
  const std::size_t count = node.MemberCount();
  for (std::size_t i = 0; i < count; ++i) {
    const ScriptNode values = node.Member(i);
    const Text path = values.Key();
    CheckKeyPath(values, path);
    RegistryNode& key = machine.registry.Make(path);
    const std::size_t valueCount = values.MemberCount();
    for (std::size_t j = 0; j < valueCount; ++j) ReadRegistryValue(values.Member(j), key);
  }
}

constexpr KeyReader<MachineSetup> kMachineKeys[] = {
    {"screen", ReadScreen},
    {"clock", ReadClock},
    {"spinMilliseconds",
     [](const ScriptNode& n, MachineSetup& m) {
       m.spinMicroseconds = DayMicroseconds(n.NotNegative() * 1e3);
     }},
    {"windows95", [](const ScriptNode& n, MachineSetup& m) { m.windows95 = n.Boolean(); }},
    {"midiDevices", [](const ScriptNode& n, MachineSetup& m) { m.midiDevices = n.Whole<std::uint32_t>(); }},
    {"midiOpen",
     [](const ScriptNode& n, MachineSetup& m) {
       m.midiOpenResults = n.Items([](const ScriptNode& item) { return item.Whole<std::uint32_t>(); });
     }},
    {"sapi5", ReadSapi5},
    {"sapi4", ReadSapi4},
    {"files", ReadFiles},
    {"readOnly", [](const ScriptNode& n, MachineSetup& m) { m.readOnly = n.Items(ReadText); }},
    {"shortPathFails", [](const ScriptNode& n, MachineSetup& m) { m.shortPathFails = n.Boolean(); }},
    {"registry", ReadRegistry},
    {"registryDenied", [](const ScriptNode& n, MachineSetup& m) { m.registryDenied = n.Boolean(); }},
    {"clipboardFails", [](const ScriptNode& n, MachineSetup& m) { m.clipboardFails = n.Boolean(); }},
    {"shellFails", [](const ScriptNode& n, MachineSetup& m) { m.shellFails = n.Boolean(); }},
    {"roleZero", [](const ScriptNode& n, MachineSetup& m) { m.roleZero = n.Ansi(); }},
};

}  // namespace

MachineSetup ReadMachine(const ScriptNode& node) {
  MachineSetup machine;
  ReadKeys(node, kMachineKeys, machine);
  return machine;
}

}  // namespace pointalk::sim
