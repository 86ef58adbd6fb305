#!/bin/sh
# Shows a header to Doxygen with its plain comments marked as documentation: those that a declaration follows, and the
# one at the head, which is of the file.
exec awk '
  function flush(mark,   i) {
    for (i = 1; i <= count; ++i) { if (mark) sub(/\/\//, "//!", block[i]); print block[i] }
    count = 0
  }
  /^ *\/\/ / && !/clang-format/ {
    if (NR == 1) print "//! \\file"
    block[++count] = $0
    next
  }
  { flush($0 !~ /^$/); print }
' "$1"
