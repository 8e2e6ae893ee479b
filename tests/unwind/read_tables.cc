// Compares what unwind/ reads from the unwind tables of 32-bit files with what readelf prints of them: read_tables FILE...
// Every row of every function: where it begins and ends, the CFA, each register, pushed arguments, the values of
// expressions; of exception tables, that they can be read and lead into described code.
#include <elf.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "unwind/exception_table.h"
#include "unwind/frame_rules.h"

using namespace __zor;

static int wrong;
static long rows, expressions, argument_sizes, calls, pads;

static void report(const char *file, unsigned pc, const std::string &what) {
  if (++wrong < 20) printf("%s: %x: %s\n", file, pc, what.c_str());
}

// The file as it lies in memory; no relocations, since tables need none but for personalities.
static bool load(const char *file, an_object &object) {
  const int descriptor = open(file, O_RDONLY);
  const off_t length = lseek(descriptor, 0, SEEK_END);
  void *const bytes = mmap(nullptr, length, PROT_READ, MAP_PRIVATE, descriptor, 0);
  close(descriptor);
  if (bytes == MAP_FAILED) return false;
  const auto *header = static_cast<const Elf32_Ehdr *>(bytes);
  if (memcmp(bytes, ELFMAG, SELFMAG) != 0 || header->e_machine != EM_386) return false;
  const auto *segments = reinterpret_cast<const Elf32_Phdr *>(static_cast<char *>(bytes) + header->e_phoff);
  unsigned low = ~0u, high = 0, index = 0;
  for (int i = 0; i < header->e_phnum; ++i) {
    if (segments[i].p_type == PT_GNU_EH_FRAME) index = segments[i].p_vaddr;
    if (segments[i].p_type != PT_LOAD) continue;
    if (segments[i].p_vaddr < low) low = segments[i].p_vaddr;
    if (segments[i].p_vaddr + segments[i].p_memsz > high) high = segments[i].p_vaddr + segments[i].p_memsz;
  }
  void *const image = mmap(nullptr, high - low, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (!index || image == MAP_FAILED) return false;
  byte *const base = static_cast<byte *>(image) - low;
  for (int i = 0; i < header->e_phnum; ++i)
    if (segments[i].p_type == PT_LOAD)
      memcpy(base + segments[i].p_vaddr, static_cast<char *>(bytes) + segments[i].p_offset, segments[i].p_filesz);
  munmap(bytes, length);
  object = {{base + low, base + high}, base + index, base};
  return true;
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

static void compare_row(const char *file, const an_object &object, unsigned pc, const a_row &row, unsigned start,
                        unsigned end, bool is_signal_frame) {
  a_frame_entry entry;
  a_frame_rules rules;
  ++rows;
  if (!rules_at(object, pc, entry, rules)) return report(file, pc, "not found");
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

// The exception table must lead to a place for every address, and to landing pads that are described too.
static void check_exception_table(const char *file, const an_object &object, unsigned start, unsigned end) {
  a_frame_entry entry, other;
  if (find_frame_entry(object, in_memory(object, start), entry) != a_lookup::found || !entry.exception_table) return;
  an_exception_table table(object.range, reinterpret_cast<const byte *>(entry.exception_table), entry.start);
  for (unsigned pc = start; pc < end && !table.is_damaged(); ++pc) {
    const a_call_site site = table.find_call_site(in_memory(object, pc));
    calls += site.is_covered;
    if (!site.landing_pad) continue;
    ++pads;
    if (find_frame_entry(object, site.landing_pad, other) != a_lookup::found) report(file, pc, "landing pad nowhere");
    if (!table.check_actions(site.action)) report(file, pc, "actions");
  }
  if (table.is_damaged()) report(file, start, "exception table");
}

static void compare_interpretation(const char *file, const an_object &object) {
  FILE *const text = popen((std::string("readelf -W --debug-dump=frames-interp ") + file + " 2>/dev/null").c_str(), "r");
  std::map<unsigned, a_row> common;
  std::map<unsigned, bool> is_signal_frame;
  a_row row;
  unsigned start = 0, end = 0, cie = 0, last = 0;
  bool in_entry = false, is_ours = false;
  auto finish = [&] {
    if (in_entry && end > start) {
      compare_row(file, object, last, row, start, end, is_signal_frame[cie]);
      compare_row(file, object, end - 1, row, start, end, is_signal_frame[cie]);
      check_exception_table(file, object, start, end);
    }
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
      // A row holds up to the next one: nowhere, where that begins at the same address, or beyond the function's end.
      if (in_entry && offset >= end) continue;
      if (in_entry && offset > last) {
        compare_row(file, object, last, row, start, end, is_signal_frame[cie]);
        compare_row(file, object, offset - 1, row, start, end, is_signal_frame[cie]);
        last = offset;
      }
      row.rules.clear();
      for (std::string word; words >> word;)
        if (word[0] != '(') row.rules.push_back(word);  // "r0 (eax)" is one rule
      if (!in_entry) common[cie] = row;
    }
  }
  finish();
  pclose(text);
}

// An expression in readelf's words, over the same registers.
static bool value_of(const std::string &text, const a_machine_frame &frame, unsigned initial, bool pushes,
                     unsigned &value) {
  std::vector<unsigned> stack;
  if (pushes) stack.push_back(initial);
  std::istringstream operations(text);
  for (std::string operation; std::getline(operations, operation, ';');) {
    int number, offset;
    unsigned top = stack.empty() ? 0 : stack.back();
    const char *const name = operation.c_str() + operation.find("DW_OP_") + 6;
    if (sscanf(name, "breg%d (%*[a-z]): %d", &number, &offset) == 2) {
      stack.push_back((number == register_eip ? frame.address : frame.registers[number]) + offset);
    } else if (sscanf(name, "lit%d", &number) == 1 || sscanf(name, "const%*[1-4us]: %d", &number) == 1) {
      stack.push_back(number);
    } else if (sscanf(name, "plus_uconst: %d", &number) == 1) {
      stack.back() = top + number;
    } else if (strcmp(name, "deref") == 0) {
      stack.back() = *reinterpret_cast<unsigned *>(top);
    } else {
      if (stack.size() < 2) return false;
      stack.pop_back();
      unsigned &left = stack.back();
      if (strcmp(name, "plus") == 0) left += top;
      else if (strcmp(name, "minus") == 0) left -= top;
      else if (strcmp(name, "and") == 0) left &= top;
      else if (strcmp(name, "shl") == 0) left <<= top;
      else if (strcmp(name, "ge") == 0) left = static_cast<int>(left) >= static_cast<int>(top);
      else return false;
    }
  }
  value = stack.back();
  return true;
}

static void compare_instructions(const char *file, const an_object &object) {
  FILE *const text = popen((std::string("readelf -W --debug-dump=frames ") + file + " 2>/dev/null").c_str(), "r");
  struct a_state {
    std::map<int, std::string> expressions;  // by register; -1 is the CFA
    unsigned arguments_size = 0;
  } state;
  std::map<unsigned, a_state> common;
  unsigned at = 0, end = 0, cie = 0;
  bool in_entry = false, is_ours = false;
  unsigned stack[1024];
  for (unsigned i = 0; i < 1024; ++i) stack[i] = rand();
  auto check_to = [&](unsigned next) {
    a_frame_entry entry;
    a_frame_rules rules;
    if (!in_entry || next <= at) return;
    if (!rules_at(object, next - 1, entry, rules)) return report(file, next - 1, "not found");
    if (rules.arguments_size != state.arguments_size) report(file, at, "pushed arguments");
    argument_sizes += state.arguments_size != 0;
    a_machine_frame frame;
    for (unsigned &value : frame.registers) value = reinterpret_cast<unsigned>(stack + 256 + rand() % 256);
    frame.registers[register_esp] = reinterpret_cast<unsigned>(stack);
    frame.address = in_memory(object, at);
    for (int i = -1; i < register_count; ++i) {
      const a_rule &rule = i < 0 ? rules.cfa : rules.registers[i];
      if (!rule.expression) continue;
      unsigned want, got;
      ++expressions;
      if (!value_of(state.expressions[i], frame, frame.registers[0], i >= 0, want) ||
          !evaluate(object.range, rule.expression, frame, frame.registers[0], got) || got != want)
        report(file, at, "expression " + state.expressions[i]);
    }
  };
  char line[1000];
  while (fgets(line, sizeof line, text)) {
    unsigned offset, next;
    char word[40];
    line[strcspn(line, "\n")] = 0;
    if (const char *section = strstr(line, "Contents of the ")) is_ours = strstr(section, ".eh_frame ") != nullptr;
    if (!is_ours) continue;
    const char *const instruction = strstr(line, "  DW_CFA_");
    if (sscanf(line, "%x %*x %*x %39s", &offset, word) == 2) {
      check_to(end);
      if (!in_entry) common[cie] = state;
      in_entry = strcmp(word, "FDE") == 0;
      if (in_entry && sscanf(strstr(line, "cie="), "cie=%x pc=%x..%x", &cie, &at, &end) == 3) {
        state = common[cie];
      } else {
        cie = offset;
        state = a_state();
      }
    } else if (instruction && strstr(instruction, "advance_loc") && sscanf(strstr(line, " to "), " to %x", &next) == 1) {
      check_to(next);
      at = next;
    } else if (instruction && sscanf(instruction, "  DW_CFA_GNU_args_size: %u", &offset) == 1) {
      state.arguments_size = offset;
    } else if (instruction && strstr(instruction, "expression")) {
      int reg = -1;
      if (const char *named = strstr(instruction, ": r")) sscanf(named, ": r%d", &reg);
      const char *const code = strstr(instruction, "(DW_OP_");
      state.expressions[reg] = std::string(code + 1, strlen(code) - 2);
    }
  }
  check_to(end);
  pclose(text);
}

int main(int argc, char **argv) {
  for (int i = 1; i < argc; ++i) {
    an_object object;
    if (!load(argv[i], object)) {
      report(argv[i], 0, "no program with tables");
      continue;
    }
    compare_interpretation(argv[i], object);
    compare_instructions(argv[i], object);
  }
  printf("%d files, %ld rows, %ld expressions, %ld rows with pushed arguments, %ld addresses in calls, %ld with a landing "
         "pad; %d wrong\n", argc - 1, rows, expressions, argument_sizes, calls, pads, wrong);
  return wrong != 0 || rows < 10000 || !expressions || !argument_sizes || !pads;
}
