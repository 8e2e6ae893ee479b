// Reads a table of the system into strings and tells which of its lines are bad, and why. Real tables are messy: tabs
// and blanks, comments after entries, ports out of range, entries cut short.
//
//   tables services FILE     name port/protocol [alias...]          such as /etc/services
//   tables types FILE        type/subtype extension...              such as /etc/mime.types
//   tables accounts FILE     name:password:uid:gid:text:home:shell  such as /etc/passwd
//
// A bad line is an exception, caught for that line, and reading goes on. A file that cannot be read as a table at all
// is another, caught around the whole file. Exit status: 0, or 2 when there was no table, or 3 when told the wrong way.
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

// ---- What can be wrong ----------------------------------------------------------------------------------------------

// Something is wrong with one line; the classes below say what.
class bad_line : public std::runtime_error {
public:
  explicit bad_line(const std::string &message) : std::runtime_error(message) {}
};

class missing_field : public bad_line {
public:
  explicit missing_field(const std::string &field) : bad_line("no " + field) {}
};

class bad_number : public bad_line {
public:
  bad_number(const std::string &field, const std::string &text)
      : bad_line(field + " \"" + text + "\" is no number in range") {}
};

class bad_name : public bad_line {
public:
  explicit bad_name(const std::string &text) : bad_line("\"" + text + "\" is no name") {}
};

// Something is wrong with the file as a whole.
class no_table : public std::runtime_error {
public:
  explicit no_table(const std::string &message) : std::runtime_error(message) {}
};

// ---- Taking a line apart --------------------------------------------------------------------------------------------

static const char blanks[] = " \t\r\f\v";

// Cuts the next field off the front of `rest`; empty when there is none.
static std::string next_field(std::string &rest, const char *separators) {
  std::string::size_type begin = rest.find_first_not_of(separators);
  if (begin == std::string::npos) begin = rest.size();
  std::string::size_type end = rest.find_first_of(separators, begin);
  if (end == std::string::npos) end = rest.size();
  std::string field = rest.substr(begin, end - begin);
  rest.erase(0, end);
  return field;
}

static std::string required(const std::string &field, const char *what) {
  if (field.empty()) throw missing_field(what);
  return field;
}

static const std::string &checked_name(const std::string &name) {
  static const std::string allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._+*-";
  if (name.empty() || name.find_first_not_of(allowed) != std::string::npos) throw bad_name(name);
  return name;
}

static long checked_number(const std::string &field, const std::string &text, long limit) {
  if (text.empty() || text.size() > 10 || text.find_first_not_of("0123456789") != std::string::npos)
    throw bad_number(field, text);
  long value = std::strtol(text.c_str(), 0, 10);
  if (value > limit) throw bad_number(field, text);
  return value;
}

// ---- The tables -----------------------------------------------------------------------------------------------------

// Reads one line of a table; throws a bad_line. `extras` counts what a line names beyond its own entry.
class table {
public:
  table() : extras(0) {}
  virtual ~table() {}
  virtual void read(std::string line) = 0;
  virtual std::string summary() const = 0;

protected:
  int extras;
};

class services : public table {
public:
  services() : highest_(0) {}

  virtual void read(std::string line) {
    std::string name = required(next_field(line, blanks), "name");
    checked_name(name);
    std::string port = required(next_field(line, blanks), "port");
    std::string::size_type slash = port.find('/');
    if (slash == std::string::npos) throw missing_field("protocol");
    long number = checked_number("port", port.substr(0, slash), 65535);
    checked_name(port.substr(slash + 1));
    for (std::string alias = next_field(line, blanks); !alias.empty(); alias = next_field(line, blanks)) {
      checked_name(alias);
      ++extras;
    }
    if (number > highest_) {
      highest_ = number;
      highest_name_ = name;
    }
  }

  virtual std::string summary() const {
    char text[64];
    std::sprintf(text, "%d aliases, highest port %ld: ", extras, highest_);
    return text + highest_name_;
  }

private:
  long highest_;
  std::string highest_name_;
};

class types : public table {
public:
  virtual void read(std::string line) {
    std::string type = required(next_field(line, blanks), "type");
    std::string::size_type slash = type.find('/');
    if (slash == std::string::npos) throw missing_field("subtype");
    checked_name(type.substr(0, slash));
    checked_name(type.substr(slash + 1));
    std::string extension = required(next_field(line, blanks), "extension");
    for (; !extension.empty(); extension = next_field(line, blanks)) {
      checked_name(extension);
      ++extras;
    }
    if (type.size() > longest_.size()) longest_ = type;
  }

  virtual std::string summary() const {
    char text[64];
    std::sprintf(text, "%d extensions, longest type: ", extras);
    return text + longest_;
  }

private:
  std::string longest_;
};

class accounts : public table {
public:
  virtual void read(std::string line) {
    // Fields may be empty here, so each ends at its own colon.
    static const char *const names[] = {"name", "password", "uid", "gid", "text", "home", "shell"};
    std::string fields[7];
    std::string::size_type begin = 0;
    for (int i = 0; i < 7; ++i) {
      std::string::size_type end = line.find(':', begin);
      if (i < 6 && end == std::string::npos) throw missing_field(names[i + 1]);
      fields[i] = line.substr(begin, end == std::string::npos ? end : end - begin);
      begin = end + 1;
    }
    checked_name(fields[0]);
    checked_number("uid", fields[2], 2147483646);
    checked_number("gid", fields[3], 2147483646);
    if (fields[6].find("nologin") == std::string::npos && fields[6].find("false") == std::string::npos) {
      ++extras;
      last_ = fields[0];
    }
  }

  virtual std::string summary() const {
    char text[64];
    std::sprintf(text, "%d with a shell, the last one: ", extras);
    return text + last_;
  }

private:
  std::string last_;
};

// ---- Reading the file -----------------------------------------------------------------------------------------------

// Closed by its destructor, whichever way it is left.
class input_file {
public:
  explicit input_file(const std::string &path) : file_(std::fopen(path.c_str(), "r")) {
    if (file_ == 0) throw no_table(path + " cannot be opened");
  }
  ~input_file() { std::fclose(file_); }

  // The next line of any length, without its end; false at the end of the file.
  bool next(std::string &line) {
    line = "";
    int character = std::getc(file_);
    if (character == EOF) {
      if (std::ferror(file_)) throw no_table("the file cannot be read");
      return false;
    }
    for (; character != EOF && character != '\n'; character = std::getc(file_)) line += static_cast<char>(character);
    return true;
  }

private:
  input_file(const input_file &);
  input_file &operator=(const input_file &);

  std::FILE *file_;
};

struct tally {
  int lines, skipped, entries, missing, numbers, names;
};

// Catches what is wrong with single lines; lets through what is wrong with the file.
static tally read_table(const std::string &path, table &reader) {
  tally count = {0, 0, 0, 0, 0, 0};
  int shown = 0;
  input_file file(path);
  std::string line;
  while (file.next(line)) {
    ++count.lines;
    std::string content = line.substr(0, line.find('#'));
    if (content.find_first_not_of(blanks) == std::string::npos) {
      ++count.skipped;
      continue;
    }
    try {
      reader.read(content);
      ++count.entries;
    } catch (const bad_line &error) {
      // The kind decides what is counted. A throw without operand goes on with the exception that is being handled.
      try {
        throw;
      } catch (const missing_field &) {
        ++count.missing;
      } catch (const bad_number &) {
        ++count.numbers;
      } catch (const bad_name &) {
        ++count.names;
      }
      if (++shown <= 5) std::printf("  line %d: %s\n", count.lines, error.what());
      if (shown == 6) std::printf("  ... and more\n");
      if (shown >= 20 && count.entries == 0) throw no_table("20 bad lines and no entry: this is another kind of file");
    }
  }
  return count;
}

int main(int argc, char **argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s services|types|accounts FILE\n", argv[0]);
    return 3;
  }
  const std::string kind = argv[1], path = argv[2];
  services services_reader;
  types types_reader;
  accounts accounts_reader;
  try {
    table *reader = 0;
    if (kind == "services") reader = &services_reader;
    if (kind == "types") reader = &types_reader;
    if (kind == "accounts") reader = &accounts_reader;
    if (reader == 0) throw std::invalid_argument("no such kind of table: " + kind);

    tally count = read_table(path, *reader);
    int bad = count.missing + count.numbers + count.names;
    std::printf("%s: %d lines, %d entries, %d blank or comment, %d bad\n", path.c_str(), count.lines, count.entries,
                count.skipped, bad);
    std::printf("bad lines: %d missing field, %d bad number, %d bad name\n", count.missing, count.numbers, count.names);
    std::printf("%s\n", reader->summary().c_str());
    return 0;
  } catch (const no_table &error) {
    std::printf("%s: not read: %s\n", path.c_str(), error.what());
    return 2;
  } catch (const std::exception &error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 3;
  }
}
