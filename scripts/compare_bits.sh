# Functions for the scripts that compare the bits of builds, which source this file. They use `count`,
# the operations of each build, `work`, a folder for files, and `failures`, which they count up.

# sums_of_first TITLE PROGRAM: prints the checksums of the build that all others are compared with.
sums_of_first() {
  first=$2
  echo "$1: $count operations"
  "$first" "$count" | tee "$work/first.sums"
}

# compare TITLE COMMAND...: prints the kinds of operations whose checksum differs and how many
# operations differ. A kind that uses no function of the C library is a failure.
compare() {
  local title=$1 program=("${@:2}") kind functions differing start=$SECONDS
  "${program[@]}" "$count" >"$work/sums"
  echo "$title: $count operations, $((SECONDS - start)) s"
  while read -r kind _ functions; do
    [ "$kind" != all ] || continue
    diff <("$first" "$count" --show "$kind") <("${program[@]}" "$count" --show "$kind") \
      >"$work/differences" || true
    differing=$(grep -c '^>' "$work/differences")
    echo "  $kind: $differing of $((count / 16)) differ (${functions:-no function of the C library})"
    [ -n "$functions" ] || { head -n 4 "$work/differences"; failures=$((failures + 1)); }
  done < <(diff "$work/first.sums" "$work/sums" | sed -n 's/^> //p')
}
