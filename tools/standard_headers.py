"""Which header of the standard library, or of fmt, has what a source uses.

A rule of tools/lint.py: each source includes what it uses, itself or through our own headers, and
does not live on what the headers of one library happen to include. So it can be compiled on other
systems and with later libraries, alone or together with others.
"""

import re


def names(header, text, call=False):
    """The header, and a pattern for the names that only it brings."""
    return header, re.compile(r"\bstd::(?:" + "|".join(text.split()) + r")\b" +
                              (r"\s*\(" if call else ""))


NAMES = [
    names("algorithm", """adjacent_find all_of any_of clamp copy copy_if copy_n count count_if equal
          fill fill_n find find_if find_if_not for_each generate_n includes is_sorted lower_bound
          max_element min_element mismatch none_of partition remove remove_if replace reverse rotate
          search set_difference sort stable_sort transform unique upper_bound""", call=True),
    names("array", "array"), names("atomic", "atomic"), names("charconv", "from_chars to_chars"),
    names("chrono", "chrono"),
    names("cmath", """acos asin atan atan2 ceil cos fabs floor hypot isfinite isnan lround pow
          remainder sin sqrt tan""", call=True),
    names("cstring", "memcmp memcpy memset strcmp strerror strlen"), names("deque", "deque"),
    names("filesystem", "filesystem"), names("fstream", "fstream ifstream ofstream"),
    names("functional", "function"), names("list", "list"), names("map", "map multimap"),
    names("memory", "make_shared make_unique shared_ptr unique_ptr weak_ptr"),
    names("mutex", "lock_guard mutex unique_lock"), names("numbers", "numbers"),
    names("numeric", "accumulate iota"), names("optional", "nullopt optional"),
    names("set", "multiset set"), names("sstream", "istringstream ostringstream stringstream"),
    names("stdexcept", "invalid_argument logic_error out_of_range runtime_error"),
    names("string", "string to_string u16string"), names("thread", "thread"),
    names("tuple", "make_tuple tie tuple"), names("unordered_map", "unordered_map"),
    names("unordered_set", "unordered_set"), names("variant", "get_if monostate variant visit"),
    names("vector", "vector"), ("fmt/", re.compile(r"\bfmt::"))]

DECLARED_ONLY = {"fstream": "iosfwd"}  # headers that are enough for a pointer or a reference

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)', re.MULTILINE)


def reach(includes, path):
    """What <…> a file includes, itself or through headers of ours."""
    seen, waiting, found = set(), [path], set()
    while waiting:
        at = waiting.pop()
        if at in seen or at not in includes:
            continue
        seen.add(at)
        for mark, header in includes[at]:
            if mark == "<":
                found.add(header)
            else:
                waiting += [header, at.rpartition("/")[0] + "/" + header]
    return found


def missing(tree):
    """Path, line and header of what is used and not included."""
    sources = list(tree.sources("cpp"))
    includes = {path: INCLUDE.findall(tree.without_comments(path)) for path in sources}
    for path in sources:
        code = tree.code(path)
        found = reach(includes, path)
        for header, pattern in NAMES:
            use = pattern.search(code)
            if use and not any(each == header or each.startswith("fmt/") and header == "fmt/" or
                               each == DECLARED_ONLY.get(header) for each in found):
                yield path, code.count("\n", 0, use.start()) + 1, header
