/// The lines between cases.py and the runners, which are C and C++. A line in is a call and its
/// arguments, a line out a status and what came of it: texts between tabs, with `\t`, `\n`, `\0` and
/// `\\` for those bytes, and `\N` for null.
#ifndef TRELVON_CASES_LINES_H
#define TRELVON_CASES_LINES_H

#include <stddef.h>
#include <stdio.h>

enum { MOST_WORDS = 16, MOST_BYTES = 1 << 22 };

/* A text, with a NUL behind it; null has no bytes. */
typedef struct {
  char* data;
  size_t size;
} word;

static word words[MOST_WORDS];
static size_t word_count;

static char unescaped(int letter) {
  return (char)(letter == 't' ? '\t' : letter == 'n' ? '\n' : letter == '0' ? '\0' : letter);
}

/* Reads a line into `words`; returns 0 at the end. */
static int read_line(void) {
  static char bytes[MOST_BYTES];
  char* at = bytes;
  int byte;
  word_count = 1;
  words[0].data = at;
  while ((byte = getchar()) != '\n') {
    if (byte == EOF || word_count == MOST_WORDS || at - bytes > MOST_BYTES - 3) return 0;
    if (byte == '\\') {
      byte = getchar();
      if (byte == 'N') words[word_count - 1].data = NULL;
      if (byte != 'N') *at++ = unescaped(byte);
    } else if (byte != '\t') {
      *at++ = (char)byte;
    } else {
      words[word_count - 1].size = (size_t)(at - words[word_count - 1].data);
      *at++ = '\0';
      words[word_count++].data = at;
    }
  }
  words[word_count - 1].size = (size_t)(at - words[word_count - 1].data);
  *at = '\0';
  return 1;
}

static void print_word(const char* data, size_t size) {
  size_t i;
  putchar('\t');
  for (i = 0; i < size; ++i) {
    const char* escape = data[i] == '\t'   ? "\\t"
                         : data[i] == '\n' ? "\\n"
                         : data[i] == '\0' ? "\\0"
                         : data[i] == '\\' ? "\\\\"
                                           : NULL;
    if (escape)
      fputs(escape, stdout);
    else
      putchar(data[i]);
  }
}

#endif
