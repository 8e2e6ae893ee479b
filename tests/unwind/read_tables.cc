// read_tables EXPRESSIONS FILE... compares what unwind/ reads from the unwind tables of 32-bit files with what readelf
// prints of them. Every row of every function: where it begins and ends, the CFA, each register, pushed arguments.
// And what expressions mean.
#include <elf.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "unwind/frame_rules.h"

using namespace __zor;

static int wrong;
static long rows, argument_sizes, expressions;

static void report(const char *file, unsigned pc, const std::string &what) {
  if (++wrong < 20) printf("%s: %x: %s\n", file, pc, what.c_str());
}

// The file as it lies in memory, from address 0 on; no relocations, since tables need none but for personalities.
static bool load(const char *file, an_object &object) {
  const int descriptor = open(file, O_RDONLY);
  const size_t room = 16 << 20;
  byte *const image =
      static_cast<byte *>(mmap(nullptr, room, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  Elf32_Ehdr header = {};
  std::vector<Elf32_Phdr> segments(100);
  pread(descriptor, &header, sizeof header, 0);
  if (memcmp(&header, ELFMAG, SELFMAG) != 0 || header.e_machine != EM_386 || header.e_phnum > segments.size())
    return false;
  segments.resize(header.e_phnum);
  pread(descriptor, segments.data(), segments.size() * sizeof segments[0], header.e_phoff);
  object = {{image, image}, nullptr, image};
  for (const Elf32_Phdr &segment : segments) {
    if (segment.p_type == PT_GNU_EH_FRAME) object.index = image + segment.p_vaddr;
    if (segment.p_type != PT_LOAD || segment.p_vaddr + segment.p_memsz > room) continue;
    pread(descriptor, image + segment.p_vaddr, segment.p_filesz, segment.p_offset);
    object.range.end = image + segment.p_vaddr + segment.p_memsz;
  }
  close(descriptor);
  return object.index != nullptr;
}

static unsigned in_memory(const an_object &object, unsigned pc) { return reinterpret_cast<unsigned>(object.map) + pc; }

static bool rules_at(const an_object &object, unsigned pc, a_frame_entry &entry, a_frame_rules &rules) {
  const unsigned address = in_memory(object, pc);
  return find_frame_entry(object, address, entry) == a_lookup::found && find_rules(object, entry, address, rules);
}

static const char *const names[] = {"eax", "ecx", "edx", "ebx", "esp", "ebp", "esi", "edi", "ra"};

// A rule in readelf's words; it prints `u` for what was not mentioned yet, too.
static std::string words(const a_rule &rule, bool is_cfa, bool is_return_address) {
  char text[40] = "";
  switch (rule.kind) {
    case a_rule::same: return is_return_address ? "s" : "u";
    case a_rule::undefined: return "u";
    case a_rule::at_offset: sprintf(text, "c%+d", rule.offset); break;
    case a_rule::is_offset: sprintf(text, "v%+d", rule.offset); break;
    case a_rule::in_register: sprintf(text, is_cfa ? "%s%+d" : "%s", names[rule.reg], rule.offset); break;
    case a_rule::at_expression: return "exp";
    case a_rule::is_expression: return is_cfa ? "exp" : "vexp";
  }
  return text;
}

struct a_row {
  std::vector<std::string> columns, rules;
};

static unsigned last_end;  // of the function of the row before
static void compare_row(const char *file, const an_object &object, unsigned pc, const a_row &row, unsigned start,
                        unsigned end, bool is_signal_frame) {
  a_frame_entry entry;
  a_frame_rules rules;
  ++rows;
  last_end = end;
  if (!rules_at(object, pc, entry, rules)) return report(file, pc, "not found");
  argument_sizes += rules.arguments_size != 0;
  if (entry.start != in_memory(object, start) || entry.end != in_memory(object, end) ||
      entry.is_signal_frame != is_signal_frame)
    report(file, pc, "another entry");
  for (unsigned i = 0; i <= register_count; ++i) {
    const bool is_cfa = i == register_count;
    std::string want = i == register_eip ? "s" : "u";
    for (unsigned k = 0; k < row.columns.size() && k < row.rules.size(); ++k)
      if (row.columns[k] == (is_cfa ? "CFA" : names[i])) want = row.rules[k];
    if (want == "s" && i != register_eip) want = "u";
    if (want[0] == 'r') want = names[atoi(want.c_str() + 1)];
    const std::string got = words(is_cfa ? rules.cfa : rules.registers[i], is_cfa, i == register_eip);
    if (got != want) report(file, pc, std::string(is_cfa ? "CFA" : names[i]) + " " + got + ", readelf " + want);
  }
}

static void compare_interpretation(const char *file, const an_object &object) {
  FILE *const text =
      popen((std::string("readelf -W --debug-dump=frames-interp ") + file + " 2>/dev/null").c_str(), "r");
  std::map<unsigned, a_row> common;
  std::map<unsigned, bool> is_signal_frame;
  a_row row;
  unsigned start = 0, end = 0, cie = 0, last = 0;
  bool in_entry = false, is_ours = false;
  // A row holds up to the next one: nowhere, where that begins at the same address, or beyond the function's end.
  const auto compare_up_to = [&](unsigned next) {
    if (!in_entry || next <= last) return;
    compare_row(file, object, last, row, start, end, is_signal_frame[cie]);
    compare_row(file, object, next - 1, row, start, end, is_signal_frame[cie]);
    last = next;
  };
  const auto finish = [&] {
    compare_up_to(end);
    in_entry = false;
  };
  char line[1000];
  while (fgets(line, sizeof line, text)) {
    unsigned offset;
    if (const char *section = strstr(line, "Contents of the ")) is_ours = strstr(section, ".eh_frame ") != nullptr;
    if (!is_ours) continue;
    if (strstr(line, " CIE \"") && sscanf(line, "%x", &offset) == 1) {
      finish();
      cie = offset;
      is_signal_frame[cie] = strchr(strchr(line, '"'), 'S') != nullptr;
    } else if (strstr(line, " FDE cie=")) {
      finish();
      in_entry = sscanf(strstr(line, "cie="), "cie=%x pc=%x..%x", &cie, &start, &end) == 3;
      last = start;
      row = common[cie];
    } else if (strstr(line, "   LOC ")) {
      std::istringstream words(line);
      row.columns.clear();
      for (std::string word; words >> word;)
        if (word != "LOC") row.columns.push_back(word);
    } else if (sscanf(line, "%x", &offset) == 1 && line[8] == ' ' && !strstr(line, "ZERO")) {
      std::istringstream words(line + 8);
      if (in_entry && offset >= end) continue;
      compare_up_to(offset);
      row.rules.clear();
      for (std::string word; words >> word;)
        if (word[0] != '(') row.rules.push_back(word);  // "r0 (eax)" is one rule
      if (!in_entry) common[cie] = row;
    }
  }
  finish();
  pclose(text);
}

// What expressions mean, and pointers as compilers' tables have none: data/expressions.
static void check_operations(const char *file) {
  unsigned words[] = {0, 0x12345678, 0x9ABCDEF0};
  const unsigned place = reinterpret_cast<unsigned>(words), invalid = 0xBAD;
  std::map<std::string, unsigned> known = {
      {"place", place}, {"place-4", place - 4}, {"place+4", place + 4}, {"invalid", invalid}};
  a_machine_frame frame = {};
  frame.registers[register_esp] = place - 16;
  frame.registers[register_ebx] = place;
  const auto number = [&](const std::string &text) {
    return known.count(text) ? known[text] : unsigned(std::stoul(text, nullptr, 0));
  };
  std::ifstream in(file);
  for (std::string line, name, sign, word; std::getline(in, line);) {
    std::istringstream parts(line);
    std::vector<byte> code(1);
    unsigned value = invalid;
    parts >> name >> sign;
    if (name == "#") continue;
    while (parts >> word) code.push_back(static_cast<byte>(number(word)));
    code[0] = static_cast<byte>(code.size() - 1);
    if (sign == "=") known[name] = code[1];
    if (sign == ":" && !evaluate(everywhere, code.data(), frame, 1, value)) value = invalid;
    if (sign == "@") {  // the encoding and the bytes
      value = a_byte_reader(everywhere, &code[2]).pointer(code[1], 10);
      if ((code[1] & 0x70) == pointer_to_itself) value -= reinterpret_cast<unsigned>(&code[2]);
    }
    if (sign != "=" && value != number(name)) report(line.c_str(), 0, std::to_string(value));
    expressions += sign != "=";
  }
}

int main(int argc, char **argv) {
  for (int i = 2; i < argc; ++i) {
    an_object object;
    if (!load(argv[i], object)) {
      report(argv[i], 0, "no program with tables");
      continue;
    }
    compare_interpretation(argv[i], object);
    // data/rare.s, the last one: so many bytes are pushed in its last rows.
    for (unsigned back = 1; i == argc - 1 && back < 4; ++back) {
      a_frame_entry entry;
      a_frame_rules rules;
      if (!rules_at(object, last_end - back, entry, rules) || rules.arguments_size != 144)
        report(argv[i], back, "pushed");
    }
  }
  check_operations(argv[1]);
  printf("%d files, %ld rows, %ld with pushed arguments; %d wrong\n", argc - 2, rows, argument_sizes, wrong);
  return wrong != 0 || rows < 10000 || !argument_sizes || !expressions;
}
