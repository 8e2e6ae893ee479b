// generate RULES FIRST COUNT: writes what the rule `main` of a file of rules makes at random, for each of COUNT numbers
// from FIRST on. The same number gives the same text. programs.rules has exception programs, classes.rules hierarchies
// of classes, scenes.rules the scenes of scenes/.
//
// A rule is a line NAME WEIGHT NEEDS TEXT, lines that begin with a blank continue the text; several of one name are
// alternatives. NEEDS are letters: a capital one needs a number above 0 of what it counts, a small one that flag,
// behind `!` that it is not set; n is set until rules that need it have been nested too deep or too often; `-` needs
// nothing. In a text stand for
//
//   $(2-5)         a number                      $(a|b|)       one of these texts
//   $(rule 1-3)    this rule, so many times      $(rule +a -b) with flag a, without b
//   $(each rule x) for all X in turn, $k is their number; with a capital X only those before count as X meanwhile
//   $X $x          one of X at random: any; the same in the whole text      $#  a new number
//   $(bases)       of class $k, among those before
//
// `count X 3-8 ...` says how many X there are.
#include <algorithm>
#include <cctype>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

struct an_alternative {
  int weight;
  std::string needs, text;
};
struct a_place {
  std::string flags;
  int depth;
  std::map<char, int> chosen;  // $x
};
static std::map<std::string, std::vector<an_alternative> > rules;
static std::map<char, std::string> ranges;
static std::map<char, int> counts;
static int labels, current, fuel;  // $#, $k, and how often rules that need n may still be used

static std::mt19937 engine;
static unsigned random_below(unsigned n) { return engine() % n; }
static bool chance(unsigned percent) { return random_below(100) < percent; }
static int between(const std::string &range) {
  int low = 0, high = 0;
  std::istringstream(range) >> low >> high;  // "3-8": 3 and -8
  return low + int(random_below(1 - high - low));
}

static void read(const char *file) {
  std::ifstream in(file);
  std::string line, name, *text = 0;
  while (std::getline(in, line)) {
    an_alternative read;
    std::istringstream words(line);
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == ' ') {
      *text += "\n" + line.substr(2);
    } else if (words >> name && name == "count") {
      for (char letter; words >> letter;) words >> ranges[letter];
    } else {
      words >> read.weight >> read.needs >> std::ws;
      std::getline(words, read.text);
      rules[name].push_back(read);
      text = &rules[name].back().text;
    }
  }
}

static bool fits(const std::string &needs, const a_place &at) {
  bool wanted = true;
  for (char need : needs) {
    const bool is = std::isupper(need) ? counts[need] > 0
                    : need == 'n'      ? at.depth > 0 && fuel > 0
                                       : at.flags.find(need) != std::string::npos;
    if (need != '!' && need != '-' && is != wanted) return false;
    wanted = need != '!';
  }
  return true;
}

static void expand(const std::string &text, a_place &at);
static void apply(const std::string &rule, const std::string &flags, int depth) {
  a_place inside = {flags, depth, {}};
  std::vector<const an_alternative *> all;
  for (const an_alternative &one : rules.at(rule))
    if (fits(one.needs, inside)) all.insert(all.end(), one.weight, &one);
  const an_alternative &one = *all.at(random_below(all.size()));
  if (one.needs.find('n') != std::string::npos) --inside.depth, --fuel;
  inside.chosen['#'] = labels++;
  expand(one.text, inside);
}

// Classes with a shared base somewhere above, in this text.
static std::map<int, bool> has_virtual_base;
static int many_bases, often_virtual, often_private;
static void write_bases() {
  const char *before = " : ";
  for (int base = 0; base < current; ++base) {
    if (!chance(many_bases)) continue;
    // A private virtual base could not be destroyed by the most derived class; and not every library finds a shared
    // base that has a private way beside a public one.
    const bool is_virtual = chance(often_virtual), shares = is_virtual || has_virtual_base[base];
    has_virtual_base[current] |= shares;
    std::cout << before
              << (shares || !chance(often_private) ? "public"
                  : chance(50)                     ? "private"
                                                   : "protected")
              << (is_virtual ? " virtual X" : " X") << base;
    before = ", ";
  }
}

static void expand_inside(const std::string &content, a_place &at) {
  std::vector<std::string> choices(1);
  int open = 0;
  for (char c : content) {
    open += (c == '(') - (c == ')');
    if (c == '|' && open == 0)
      choices.push_back("");
    else
      choices.back() += c;
  }
  if (choices.size() > 1) return expand(choices[random_below(choices.size())], at);
  if (std::isdigit(content[0])) return void(std::cout << between(content));
  if (content == "bases") return write_bases();
  std::istringstream words(content);
  std::string rule, word, flags = at.flags;
  int times = 1;
  words >> rule;
  if (rule == "each") {
    char letter;
    words >> rule >> letter;
    const int count = counts[std::toupper(letter)];
    for (current = 0; current < count; ++current) {
      if (std::isupper(letter)) counts[letter] = current;
      apply(rule, flags, at.depth);
    }
    counts[std::toupper(letter)] = count;
    return;
  }
  while (words >> word) {
    if (std::isdigit(word[0])) times = between(word);
    if (word[0] == '+') flags += word;
    if (word[0] == '-')
      for (char c : word) flags.erase(std::remove(flags.begin(), flags.end(), c), flags.end());
  }
  while (times-- > 0) apply(rule, flags, at.depth);
}

static void expand(const std::string &text, a_place &at) {
  for (std::string::size_type i = 0; i < text.size(); ++i) {
    if (text[i] != '$') {
      std::cout << text[i];
      continue;
    }
    const char what = text[++i];
    if (what == '(') {
      const std::string::size_type start = i + 1;
      for (int open = 1; open > 0;) {
        ++i;
        open += (text[i] == '(') - (text[i] == ')');
      }
      expand_inside(text.substr(start, i - start), at);
    } else if (what == 'k') {
      std::cout << current;
    } else if (std::isupper(what)) {
      std::cout << random_below(counts[what]);
    } else {
      if (at.chosen.count(what) == 0) at.chosen[what] = random_below(counts[std::toupper(what)]);
      std::cout << at.chosen[what];
    }
  }
}

int main(int, char **arguments) {
  read(arguments[1]);
  const unsigned first = std::stoul(arguments[2]), count = std::stoul(arguments[3]);
  for (unsigned number = first; number < first + count; ++number) {
    engine.seed(number);
    labels = current = 0;
    many_bases = 20 + random_below(40);
    often_virtual = random_below(70);
    often_private = random_below(30);
    has_virtual_base.clear();
    for (const auto &range : ranges) counts[range.first] = between(range.second);
    fuel = counts['N'];
    apply("main", "", counts['D']);
    std::cout << '\n';
  }
}
