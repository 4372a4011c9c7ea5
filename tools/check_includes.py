#!/usr/bin/env python3
"""Checks that what a file uses comes from a header that it includes, or that a header of ours does which it includes.

A standard header includes others, and with the next compiler no longer the same. A header of ours may be missing in a file that is
only ever compiled together with another one that includes it. Both are looked for by name, which needs no compiler."""

import re

from checking import OWN_FOLDERS, ROOMS, arguments, report, sources, without_comments

# Each name with the headers that are documented to have it. Of names that others write too, only `std::` ones are looked for.
HEADERS = {
    "algorithm": """adjacent_find all_of any_of binary_search clamp copy copy_if copy_n count count_if equal_range fill fill_n find_if
        find_if_not for_each generate includes is_permutation is_sorted lexicographical_compare lower_bound max max_element merge
        min min_element minmax mismatch none_of nth_element partial_sort partition remove_if replace replace_if reverse rotate search
        set_difference set_intersection shuffle sort stable_sort transform unique upper_bound""",
    "array": "array", "atomic": "atomic atomic_bool atomic_int memory_order_relaxed", "bitset": "bitset", "bit": "bit_cast popcount",
    "charconv": "to_chars from_chars chars_format", "chrono": "chrono", "condition_variable": "condition_variable cv_status",
    "cctype": "isalnum isdigit isspace isalpha isxdigit", "cinttypes": "imaxabs",
    "cmath": "abs ceil floor fmod isfinite isnan lround llround log pow remainder round sqrt trunc", "compare": "strong_ordering",
    "cstddef": "byte max_align_t to_integer", "cstdint": "int8_t uint8_t int16_t uint16_t int32_t uint32_t int64_t uint64_t uintptr_t "
    "intptr_t", "cstdio": "fputs fflush printf fprintf snprintf fopen fclose fwrite fread remove",
    "cstdlib": "abort atoi atoll exit getenv strtod strtol strtoul system _Exit", "cstring": "memchr memcmp memcpy memset strcmp strlen",
    "csignal": "signal raise sig_atomic_t", "deque": "deque", "exception": "exception exception_ptr current_exception terminate",
    "filesystem": "filesystem", "fstream": "ifstream ofstream fstream", "functional": "function hash bind less greater plus ref",
    "future": "future promise async", "initializer_list": "initializer_list", "iostream": "cin cout cerr",
    "istream": "istream", "iterator": "back_inserter inserter istreambuf_iterator next prev distance size data begin end",
    "limits": "numeric_limits", "list": "list", "map": "map multimap",
    "memory": "unique_ptr shared_ptr weak_ptr make_unique make_shared enable_shared_from_this addressof",
    "mutex": "mutex lock_guard unique_lock scoped_lock once_flag call_once", "new": "bad_alloc nothrow set_new_handler",
    "numeric": "accumulate iota", "optional": "optional nullopt", "ostream": "ostream endl", "queue": "queue priority_queue",
    "random": "mt19937 uniform_int_distribution", "regex": "regex", "set": "set multiset", "shared_mutex": "shared_mutex",
    "span": "span", "sstream": "istringstream ostringstream stringstream",
    "stdexcept": "runtime_error logic_error invalid_argument out_of_range", "stop_token": "stop_token stop_source",
    "string": "string u16string wstring getline stoi stod to_string", "string_view": "string_view u16string_view wstring_view",
    "system_error": "error_code system_error errc", "thread": "thread jthread this_thread", "tuple": "tuple tie ignore make_tuple",
    "type_traits": "is_same_v decay_t enable_if_t remove_cvref_t conditional_t", "unordered_map": "unordered_map",
    "unordered_set": "unordered_set", "utility": "exchange forward move pair swap declval as_const cmp_less make_pair",
    "variant": "variant visit get_if holds_alternative monostate", "vector": "vector",
}
# Names that several headers have.
ALSO = {
    "abs": ("cstdlib",), "remove": ("algorithm",), "size": ("array", "string", "vector", "span"), "getline": ("istream",),
    "data": ("array", "string", "vector", "span"), "begin": ("array", "string", "vector", "map"),
    "end": ("array", "string", "vector", "map"), "hash": ("string",), "next": ("vector", "map"), "prev": ("vector", "map"),
    "ignore": (), "move": ("algorithm",), "swap": ("memory",), "istream": ("iosfwd", "iostream", "sstream", "fstream"),
    "ostream": ("iosfwd", "iostream", "sstream", "fstream"), "endl": ("iostream",), "string": (), "byte": (),
}
OWNERS = {}
for header, names in HEADERS.items():
    for name in names.split():
        OWNERS.setdefault(name, set()).add(header)
for name, more in ALSO.items():
    OWNERS[name].update(more)

# What a header of ours declares for others: types, constants and routines that begin a line.
DECLARED = re.compile(
    r"^(?:class|struct|enum class|enum) (\w+)|^using (\w+) =|^inline constexpr [\w:<>, ]+? (\w+)(?:\[\w*\])? ?[={]|"
    r"^(?:inline |constexpr |\[\[nodiscard\]\] )*[A-Za-z_][\w:<>,&* ]*?[ &*]([A-Z]\w*)\(", re.M)
OWN_NAME = re.compile(
    r"(?:\b(?:class|struct|enum|using|typename) |\busing [\w:]+::|[\w>&*] [&*]?)(?<!return )(?<!else )([A-Zk]\w+)"
    r"(?=[({;=,)>\[]|\s*[{=:]| final)")
WORD = re.compile(r"(?<![.>:\w])[A-Zk][A-Z]*[a-z]\w*\b")
SEEN_BY_ALL = (*ROOMS, "platform")

USE = re.compile(r"\bstd::(?:ranges::)?(\w+)")
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.M)


class File:
    def __init__(self, root, path):
        self.name = path.relative_to(root).as_posix()
        raw = path.read_text(encoding="utf-8")
        text = without_comments(raw)
        self.folder, _, _ = self.name.rpartition("/")
        self.uses, self.words = {}, {}
        for number, line in enumerate(text.split("\n"), 1):
            for name in USE.findall(line):
                self.uses.setdefault(name, number)
            for word in WORD.findall(line):
                self.words.setdefault(word, number)
        self.declared = {name for names in DECLARED.findall(text) for name in names if name}
        # Its own names, wherever it has them.
        self.names = set(OWN_NAME.findall(text))
        includes = INCLUDE.findall(without_comments(raw, keep_literals=True))
        self.standard = {name for kind, name in includes if kind == "<"}
        self.own = [name for kind, name in includes if kind == '"']


def reached(files, name, seen):
    """Adds the file and all of ours that it includes, directly or not."""
    if name in files and files[name] not in seen:
        seen.append(files[name])
        for other in files[name].own:
            reached(files, other, seen)
    return seen


def missing_standard(files):
    for file in files.values():
        there = {header for other in reached(files, file.name, []) for header in other.standard}
        for name, line in file.uses.items():
            owners = OWNERS.get(name)
            if owners and not owners & there:
                yield f"{file.name}:{line}: std::{name} without <{'>, <'.join(sorted(owners))}>"


def missing_own(files):
    headers = [file for file in files.values() if file.name.endswith(".h")]
    for file in files.values():
        owners = {name: header.name for header in headers for name in header.declared
                  if header.folder in (file.folder, *SEEN_BY_ALL)}
        there = {name for other in reached(files, file.name, []) for name in (*other.declared, *other.names)}
        for word, line in file.words.items():
            if word in owners and word not in there:
                yield f"{file.name}:{line}: {word} without \"{owners[word]}\""


def main():
    root = arguments(__doc__).root
    files = {file.name: file for file in (File(root, path) for path in sources(root, OWN_FOLDERS))}
    report({"what is used of the standard library is included": list(missing_standard(files)),
            "what is used of ours is included": list(missing_own(files))})


if __name__ == "__main__":
    main()
