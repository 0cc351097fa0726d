#!/bin/sh
# Runs the command of a build rule such that what it generates is always the same. Qt's compiler of QML writes
# some things in the order of hashes, which get a fixed seed here, and declarations of local variables in the
# order of addresses: each block of these is sorted. CPack takes the permissions of a package's folders from the
# umask; with a strict one, nobody else could enter them.
case $1 in
  */cpack) umask 022 ;;
esac
QT_HASH_SEED=0 "$@" || exit
case $1 in
  */qmlcachegen) ;;
  *) exit ;;
esac
while [ $# -gt 1 ] && [ "$1" != -o ]; do shift; done
case $2 in *.cpp) ;; *) exit ;; esac
LC_ALL=C awk '
  function print_block(  i, j, line) {
    for (i = 2; i <= count; ++i) {
      line = block[i]
      for (j = i - 1; j > 0 && block[j] > line; --j) block[j + 1] = block[j]
      block[j + 1] = line
    }
    for (i = 1; i <= count; ++i) print block[i]
    count = 0
  }
  /^[A-Za-z][A-Za-z0-9_:<>*&, ]* \*?r[0-9]+_[0-9]+;$/ { block[++count] = $0; next }
  { print_block(); print }
  END { print_block() }' "$2" >"$2.sorted" && mv "$2.sorted" "$2"
