#include "sim/files.h"

#include <algorithm>

#include "sim/code_page.h"

namespace pointalk::sim {
namespace {

Text WholePath(FilePath path) {
  Text whole = path.folder == Folder::kProgram ? u"program\\" : u"current\\";
  return whole.append(path.name);
}

}  // namespace

bool SimFiles::IsReadOnly(TextView path) const {
  const auto& entries = machine_.setup.readOnly;
  return std::any_of(entries.begin(), entries.end(), [&](const Text& entry) {
    return entry.ends_with(u'\\') ? path.starts_with(entry) : path == entry;
  });
}

bool SimFiles::Exists(FilePath path) { return machine_.setup.files.contains(WholePath(path)); }

std::optional<Text> SimFiles::Read(FilePath path) {
  const auto file = machine_.setup.files.find(WholePath(path));
  if (file == machine_.setup.files.end()) return std::nullopt;
  return ThroughAnsi(file->second);
}

bool SimFiles::Write(FilePath path, TextView text) {
  const Text whole = WholePath(path);
  if (IsReadOnly(whole)) return false;
  const Text& written = machine_.setup.files[whole] = ThroughAnsi(text);
  machine_.Record("write", whole, written);
  return true;
}

bool SimFiles::Append(FilePath path, TextView text) {
  const Text whole = WholePath(path);
  if (IsReadOnly(whole)) return false;
  const Text added = ThroughAnsi(text);
  machine_.setup.files[whole] += added;
  machine_.Record("append", whole, added);
  return true;
}

}  // namespace pointalk::sim
