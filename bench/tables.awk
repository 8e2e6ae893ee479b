# Takes what bench/run.sh prints; writes a table in Markdown for each group of programs, and what is drawn of it: the
# name of a case and its ratios, tab-separated. For bench/charts.sh, which sets tables, data, machine and day.

function joined(from, to,   text, i) {
  for (i = from; i <= to; ++i) text = text (i > from ? " " : "") $i
  return text
}
function cell(text) { gsub(/\|/, "\\|", text); gsub(/</, "\\&lt;", text); return text }

# The chart of a program's cases.
function group_of(program) {
  if (heading ~ /static/) return "static"
  if (program ~ /^(exceptions|frames|generated|mixed|rtti|memory)$/) return "exceptions"
  if (program ~ /^string_(append|copy|edit|search)$/) return "strings"
  if (program ~ /^(sequences|associative|bitset|algorithms)$/) return "containers"
  if (program ~ /^stream|^string_streams$/) return "streams"
  print "charts: bench/tables.awk has no group for " program > "/dev/stderr"
  failed = 1
  exit 1
}
function row(from, to,   text, i) {
  for (i = from; i <= to; ++i) text = text " " $i " |"
  return text
}

/^ns per operation(, static programs)?, median/ {
  heading = $0
  rounds = $0; sub(/.*median of /, "", rounds); sub(/ .*/, "", rounds)
  columns = 3 * gsub(/ ratio/, "&")
  state = "times"
  next
}
/^geometric mean of/ { if (heading !~ /static/) summary = $0; state = ""; next }
# The size is the last word of the name.
/^ns per operation by size/ {
  state = "scaling"
  print "| Case | size | plx, g++ | g++ |\n|---|---|---|---|" > (tables "/scaling.md")
  next
}
/^instructions per call  / || /^a hello that throws/ || /^objects of libplx\.a/ {
  state = /^instr/ ? "instructions" : /^a hello/ ? "size" : "objects"
  columns = split(substr($0, 51), column, " ")
  print "| " cell(joined(1, NF - columns)) " |" row(NF - columns + 1, NF) > (tables "/" state ".md")
  print "|---|" substr("---|---|---|---|---|---|---|---|", 1, 4 * columns) > (tables "/" state ".md")
  next
}
/^ *$/ { if (state != "times") state = ""; next }
state == "scaling" {
  name = joined(1, NF - 3)
  print "| " cell(name) " |" row(NF - 2, NF) > (tables "/scaling.md")
  # Cases are blocks of gnuplot's, which two empty lines part.
  if (name != growing) printf "%s\"%s\"\n", growing == "" ? "" : "\n\n", name > (data "/scaling.blocks")
  growing = name
  print $(NF - 2), $(NF - 1), $NF > (data "/scaling.blocks")
  next
}
state == "times" && NF == 1 { program = $1; next }
state == "times" {
  last = $NF == "behind" ? NF - 1 : NF
  first = last - columns
  if (first < 2 || $first !~ /^([0-9.]+|-)$/) { print "charts: not understood: " $0 > "/dev/stderr"; failed = 1; exit 1 }
  group = group_of(program)
  file = tables "/" group ".md"
  if (!(group in seen)) {
    seen[group] = 1
    print "| Case | plx, g++ | g++ | ratio |" (columns > 3 ? " plx, clang++ | clang++ | ratio |" : "") " target |" > file
    print "|---|" substr("---|---|---|---|---|---|---|", 1, 4 * (columns + 1)) > file
  }
  name = joined(1, first - 1)
  print "| " cell(name) " |" row(first, last - 1) " " $last (last < NF ? ", behind" : "") " |" > file
  if (last < NF) behind = behind "\n| " cell(name) " |" row(first, last - 1) " " $last " |"
  if ($(first + 2) != "-") print name "\t" $(first + 2) "\t" (columns > 3 ? $(first + 5) : "-") > (data "/" group ".tsv")
  for (k = 0; 3 * k < columns; ++k) if ($(first + 3 * k + 2) + 0 > 0 && group != "static") {
    if (!(program in count)) order[++programs] = program
    sum[program, k] += log($(first + 3 * k + 2)); count[program] += k == 0
  }
  next
}
state != "" { print "| " cell(joined(1, NF - columns)) " |" row(NF - columns + 1, NF) > (tables "/" state ".md"); sizes += state == "size" }

END {
  if (failed) exit 1
  if (!programs || !sizes) { print "charts: these are not the results of a whole run" > "/dev/stderr"; exit 1 }
  for (i = 1; i <= programs; ++i) {
    p = order[i]
    printf "%s\t%.3f\t%.3f\n", p, exp(sum[p, 0] / count[p]), exp(sum[p, 1] / count[p]) > (data "/overview.tsv")
  }
  if (behind == "") behind = "\n| none | | | | | | | |"
  print "| Case | plx, g++ | g++ | ratio | plx, clang++ | clang++ | ratio | target |\n|---|---|---|---|---|---|---|---|" behind > \
    (tables "/behind.md")
  sub(/^g/, "G", summary)
  print "Of " day ", on " machine "; medians of " rounds " runs. " summary "." > (tables "/machine.md")
}
