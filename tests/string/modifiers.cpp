// Long random runs of all modifiers over a few strings that share with each other, against a model that knows no
// blocks: characters, capacity, owners. Every step compares all strings with the model and looks for broken invariants.
// test-variants: -O1 | -O3 -std=gnu++14

#include "string_check.h"

typedef std::string string;

static const unsigned int strings = 6;
static const unsigned int longest = 400;

static unsigned int state = 1;
static unsigned int random_below(unsigned int limit) {
  state = state * 1664525u + 1013904223u;
  return (state >> 8) % limit;
}

// A representation as the rules tell it.
struct model_rep {
  char text[3 * longest];
  unsigned int length, capacity;
  unsigned int count;
};

static model_rep *model[strings];

static unsigned int size_rule(unsigned int n) { return (n & ~31u) + 32; }

static model_rep *model_make(const char *text, unsigned int n) {
  model_rep *rep = new model_rep;
  memcpy(rep->text, text, n);
  rep->length = n;
  rep->capacity = size_rule(n);
  rep->count = 1;
  return rep;
}

static void model_release(model_rep *rep) {
  if (rep->count == unshareable || --rep->count == 0) delete rep;
}

// What empty strings share; it is never private, because one reference is its own.
static model_rep *model_null() {
  static model_rep *const rep = model_make("", 0);
  ++rep->count;
  return rep;
}

static model_rep *model_share(model_rep *rep) {
  if (rep->count == unshareable) return model_make(rep->text, rep->length);
  ++rep->count;
  return rep;
}

// Un-sharing before a write: true when the string was the only owner, otherwise a new representation takes its place.
static bool model_private(model_rep *&rep) {
  if (rep->count == unshareable || rep->count == 1) {
    rep->count = 1;
    return true;
  }
  --rep->count;
  model_rep *made = new model_rep(*rep);
  made->count = 1;
  rep = made;
  return false;
}

static void model_splice(model_rep *rep, unsigned int pos, unsigned int gone, const char *text, unsigned int n) {
  memmove(rep->text + pos + n, rep->text + pos + gone, rep->length - pos - gone);
  memcpy(rep->text + pos, text, n);
  rep->length = rep->length - gone + n;
}

static void model_append(model_rep *&rep, const char *text, unsigned int n) {
  const bool in_place = model_private(rep);
  model_splice(rep, rep->length, 0, text, n);
  if (!in_place || rep->length >= rep->capacity) rep->capacity = size_rule(rep->length);
}

static void model_assign(model_rep *&rep, const char *text, unsigned int n) {
  const bool in_place = model_private(rep);
  model_splice(rep, 0, rep->length, text, n);
  if (!in_place || rep->capacity <= n) rep->capacity = size_rule(n);
}

static void model_insert(model_rep *&rep, unsigned int pos, const char *text, unsigned int n) {
  if (n == 0) return;
  model_private(rep);
  model_splice(rep, pos, 0, text, n);
  rep->capacity = size_rule(rep->length);
}

static void model_erase(model_rep *&rep, unsigned int pos, unsigned int n) {
  if (n > rep->length - pos) n = rep->length - pos;
  if (n == 0) return;
  model_private(rep);
  model_splice(rep, pos, n, "", 0);
}

static void model_resize(model_rep *&rep, unsigned int n, char c) {
  if (n == rep->length) return;
  const bool in_place = model_private(rep);
  if (!in_place || rep->capacity < n) rep->capacity = size_rule(n);
  if (n > rep->length) memset(rep->text + rep->length, c, n - rep->length);
  rep->length = n;
}

static string text[strings];

static void compare(unsigned int i, const char *what) {
  const __zor::b_str_ref *rep = rep_of(text[i]);
  const bool is_null = rep == null_rep();
  const int broken = broken_invariant(text[i]);
  const bool same = rep->length == model[i]->length && memcmp(rep->data, model[i]->text, rep->length) == 0 &&
                    (is_null || rep->capacity == model[i]->capacity) && (is_null || rep->count == model[i]->count);
  if (broken == 0 && same) return;
  fprintf(stderr, "after %s: broken %d; length %u want %u, capacity %u want %u, count %u want %u\n", what, broken,
          rep->length, model[i]->length, rep->capacity, model[i]->capacity, rep->count, model[i]->count);
  CHECK(!"the string is as the model");
  exit(TEST_RESULT());
}

static void step() {
  char source[longest];
  const unsigned int i = random_below(strings), j = random_below(strings);
  string &s = text[i];
  model_rep *&m = model[i];
  unsigned int n = random_below(4) == 0 ? random_below(200) : random_below(12);
  const unsigned int room = longest - m->length;
  if (n > room) n = room;
  const unsigned int pos = random_below(m->length + 1);
  const unsigned int gone = random_below(m->length - pos + 5);
  const char c = static_cast<char>('a' + random_below(26));
  for (unsigned int k = 0; k < n; ++k) source[k] = static_cast<char>('A' + random_below(26));
  source[n] = 0;

  // A piece of the string itself, its terminator included, as a source that moves under the operation's hands.
  char own[longest + 1];
  const unsigned int own_pos = random_below(m->length + 1);
  unsigned int own_n = random_below(m->length - own_pos + 2);
  if (own_n > room) own_n = room;
  m->text[m->length] = 0;
  memcpy(own, m->text + own_pos, own_n);

  const char *what = "?";
  const unsigned int chosen = random_below(24);
  switch (chosen) {
    case 0:
    case 1:
      what = "copy assignment";
      s = text[j];
      if (model[i] != model[j]) {
        model_rep *acquired = model_share(model[j]);
        model_release(m);
        m = acquired;
      }
      break;
    case 2: {
      what = "copy construction and swap";
      string copied(text[j]);
      copied.swap(s);
      model_rep *acquired = model_share(model[j]);
      model_release(m);
      m = acquired;
      break;
    }
    case 3:
      what = "a reference handed out";
      s[pos] = s[pos];
      if (m->count != 1 && m->count != unshareable) {
        --m->count;
        m = model_make(m->text, m->length);
      }
      m->count = unshareable;
      break;
    case 4:
      what = "assign(text, n)";
      s.assign(source, n);
      model_assign(m, source, n);
      break;
    case 5:
      what = "assign from itself";
      s.assign(s.c_str() + own_pos, own_n);
      model_assign(m, own, own_n);
      break;
    case 6:
      what = "assign(n, c)";
      s.assign(n, c);
      memset(source, c, n);
      model_assign(m, source, n);
      break;
    case 7:
    case 8:
      what = "append(text, n)";
      s.append(source, n);
      model_append(m, source, n);
      break;
    case 9:
      what = "append from itself";
      s.append(s.data() + own_pos, own_n);
      model_append(m, own, own_n);
      break;
    case 10:
      what = "append(n, c)";
      s.append(n, c);
      memset(source, c, n);
      model_append(m, source, n);
      break;
    case 11:
      what = "push_back";
      if (room < 40) break;
      for (unsigned int k = 0; k < 40; ++k) {
        s.push_back(c);
        model_append(m, &c, 1);
        compare(i, what);
      }
      break;
    case 12:
      what = "insert(pos, text, n)";
      s.insert(pos, source, n);
      model_insert(m, pos, source, n);
      break;
    case 13:
    case 14:
      what = "insert from itself";
      s.insert(pos, s.c_str() + own_pos, own_n);
      model_insert(m, pos, own, own_n);
      break;
    case 15:
      what = "insert(pos, n, c)";
      s.insert(pos, n, c);
      memset(source, c, n);
      model_insert(m, pos, source, n);
      break;
    case 16:
    case 17:
      what = "erase";
      s.erase(pos, gone);
      model_erase(m, pos, gone);
      break;
    case 18:
      what = "replace(pos, n1, text, n2)";
      s.replace(pos, gone, source, n);
      model_insert(m, pos, source, n);
      model_erase(m, pos + n, gone < m->length - pos - n ? gone : m->length - pos - n);
      break;
    case 19:
    case 20:
      what = "replace by a part of itself";
      s.replace(pos, gone, s.c_str() + own_pos, own_n);
      model_insert(m, pos, own, own_n);
      model_erase(m, pos + own_n, gone < m->length - pos - own_n ? gone : m->length - pos - own_n);
      break;
    case 21:
      what = "replace(pos, n1, n2, c)";
      s.replace(pos, gone, n, c);
      memset(source, c, n);
      model_insert(m, pos, source, n);
      model_erase(m, pos + n, gone < m->length - pos - n ? gone : m->length - pos - n);
      break;
    case 22: {
      what = "resize";
      const unsigned int to = random_below(3) == 0 && m->capacity <= longest ? m->capacity : random_below(longest);
      s.resize(to, c);
      model_resize(m, to, c);
      break;
    }
    case 23:
      if (random_below(8) == 0) {
        what = "reserve";
        const unsigned int to = random_below(600);
        if (rep_of(s) == null_rep()) break;
        s.reserve(to);
        if (m->capacity < to) m->capacity = size_rule(to);
      } else {
        what = "clear";
        s.clear();
        if (m->count == 1 || m->count == unshareable) {
          m->count = 1;
          m->length = 0;
        } else {
          --m->count;
          m = model_null();
        }
      }
      break;
  }
  for (unsigned int k = 0; k < strings; ++k) compare(k, what);
}

int main() {
  for (unsigned int run = 0; run < 60; ++run) {
    state = run + 1;
    for (unsigned int i = 0; i < strings; ++i) {
      text[i] = string("start");
      if (model[i]) model_release(model[i]);
      model[i] = model_make("start", 5);
    }
    const int failures = test_failures;
    for (unsigned int i = 0; i < 5000; ++i) step();
    CHECK_INT(test_failures, failures);
  }
  return TEST_RESULT();
}
