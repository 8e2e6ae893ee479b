# Draws what bench/run.sh prints: for bench/charts.sh, which sets folder (of the charts), tables, machine and day.
#
# A chart of ratios has a bar for each case, from 1 ("as fast as the better peer") to the right where plx is faster, to
# the left where it is slower, on a logarithmic scale. Colours are chosen by the reader's light or dark setting.

function trimmed(text) { gsub(/^ +| +$/, "", text); return text }
function joined(from, to,   text, i) {
  for (i = from; i <= to; ++i) text = text (i > from ? " " : "") $i
  return text
}
function escaped(text) { gsub(/&/, "\\&amp;", text); gsub(/</, "\\&lt;", text); gsub(/>/, "\\&gt;", text); return text }
function cell(text) { gsub(/\|/, "\\|", text); gsub(/</, "\\&lt;", text); return text }
function log2(x) { return log(x) / log(2) }

# Which chart a program's cases stand in.
function group_of(program) {
  if (program ~ /^(exceptions|frames|generated|rtti|memory)$/) return "exceptions"
  if (program ~ /^string_(append|copy|edit|search)$/) return "strings"
  if (program ~ /^(sequences|associative|bitset|algorithms)$/) return "containers"
  if (program ~ /^stream|^string_streams$/) return "streams"
  return "others"
}

/^ns per operation/ { state = "times"; rounds = $6; next }
/^geometric mean of/ { summary = $0; state = ""; next }
/^instructions per call  / || /^a hello that throws/ || /^objects of libplx\.a/ {
  state = /^instr/ ? "instructions" : /^a hello/ ? "size" : "objects"
  columns = split(substr($0, 51), column, " ")
  line = "| " cell(trimmed(substr($0, 1, 50))) " |"; rule = "|---|"
  for (i = 1; i <= columns; ++i) { line = line " " column[i] " |"; rule = rule "---|" }
  table[state] = line "\n" rule
  next
}
/^ *$/ { if (state != "times") state = ""; next }
state == "times" && NF == 1 { program = $1; next }
state == "times" {
  last = $NF == "behind" ? NF - 1 : NF
  if (last < 6 || $(last - 1) !~ /^([0-9.]+|-)$/) { print "charts: not understood: " $0 > "/dev/stderr"; failed = 1; exit 1 }
  ++cases
  name[cases] = joined(1, last - 5)
  plx[cases] = $(last - 4); gcc[cases] = $(last - 3); clang[cases] = $(last - 2); ratio[cases] = $(last - 1)
  behind[cases] = last != NF
  target[cases] = $last
  of[cases] = program
  if (!(program in first)) { programs[++program_count] = program; first[program] = cases }
  if (ratio[cases] + 0 == 0) next
  sum[program] += log2(ratio[cases]); ++count[program]
  if (!(program in low) || ratio[cases] < low[program]) low[program] = ratio[cases]
  if (!(program in high) || ratio[cases] > high[program]) high[program] = ratio[cases]
  next
}
state != "" {
  line = "| " cell(joined(1, NF - columns)) " |"
  for (i = NF - columns + 1; i <= NF; ++i) line = line " " $i " |"
  table[state] = table[state] "\n" line
  if (state == "size") {
    ++sizes
    size_name[sizes] = joined(1, NF - columns)
    for (i = 1; i <= columns; ++i) size_value[sizes, i] = $(NF - columns + i)
    for (i = 1; i <= columns; ++i) size_column[i] = column[i]
    size_columns = columns
  }
}

# ---- SVG -----------------------------------------------------------------------------------------------------------

function open_svg(file, width, height, title) {
  print "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" width "\" height=\"" height "\" viewBox=\"0 0 " width " " height \
    "\" role=\"img\" aria-label=\"" escaped(title) "\">" > file
  print "<style>" > file
  print "svg { background: #ffffff; font: 12px sans-serif }" > file
  print "text { fill: #1f2328 } .note { fill: #59636e } .head { font-weight: bold }" > file
  print ".faster { fill: #1f6feb } .slower { fill: #bc4c00 } .peer { fill: #8c959f }" > file
  print ".grid { stroke: #d1d9e0 } .one { stroke: #1f2328 }" > file
  print "@media (prefers-color-scheme: dark) {" > file
  print "  svg { background: #0d1117 } text { fill: #f0f6fc } .note { fill: #9198a1 }" > file
  print "  .faster { fill: #4493f8 } .slower { fill: #db6d28 } .peer { fill: #656c76 }" > file
  print "  .grid { stroke: #3d444d } .one { stroke: #f0f6fc }" > file
  print "}" > file
  print "</style>" > file
  print "<rect width=\"100%\" height=\"100%\" fill=\"none\"/>" > file
  print "<text class=\"head\" x=\"12\" y=\"20\">" escaped(title) "</text>" > file
}
function text_at(file, x, y, anchor, class, what) {
  printf "<text class=\"%s\" x=\"%.1f\" y=\"%.1f\" text-anchor=\"%s\">%s</text>\n", class, x, y, anchor, escaped(what) > file
}
function place(value) { return left + (log2(value) - lowest) / (highest - lowest) * (right - left) }
function bar(file, from, to, y, class,   x, end) {
  x = place(from); end = place(to)
  if (end < x) { x = end; end = place(from) }
  printf "<rect class=\"%s\" x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"9\"/>\n", class, x, y, end - x < 1 ? 1 : end - x > file
}
# The scale for values between two: whole powers of two, with lines down to `bottom`.
function scale(file, from, to, bottom,   power, label) {
  lowest = int(log2(from)) - 1; if (log2(from) >= 0) lowest = -1
  highest = int(log2(to)) + 1; if (highest < 1) highest = 1
  for (power = lowest; power <= highest; ++power) {
    printf "<line class=\"%s\" x1=\"%.1f\" x2=\"%.1f\" y1=\"44\" y2=\"%d\"/>\n", power == 0 ? "one" : "grid", \
      place(2 ^ power), place(2 ^ power), bottom > file
    label = power < 0 ? "1/" 2 ^ -power : 2 ^ power
    text_at(file, place(2 ^ power), 38, "middle", "note", label)
  }
}
function close_svg(file) { print "</svg>" > file; close(file) }

function duration(ns) {
  if (ns < 1000) return shown(ns) " ns"
  if (ns < 1000000) return shown(ns / 1000) " µs"
  return shown(ns / 1000000) " ms"
}
function shown(x) { return sprintf(x < 10 ? "%.2f" : x < 100 ? "%.1f" : "%.0f", x) }

function draw_group(group, title,   file, i, rows, y, from, to, now) {
  from = to = 1
  for (i = 1; i <= cases; ++i) if (group_of(of[i]) == group && ratio[i] > 0) {
    ++rows
    if (of[i] != now) { ++rows; now = of[i] }
    if (ratio[i] < from) from = ratio[i]
    if (ratio[i] > to) to = ratio[i]
  }
  if (!rows) return
  file = folder "/" group ".svg"
  left = 330; right = 620
  open_svg(file, 860, 62 + rows * 16, title ": how many times faster than the better peer (plx / peer)")
  scale(file, from, to, 50 + rows * 16)
  y = 50; now = ""
  for (i = 1; i <= cases; ++i) if (group_of(of[i]) == group && ratio[i] > 0) {
    if (of[i] != now) { now = of[i]; text_at(file, 12, y + 10, "start", "head", now); y += 16 }
    text_at(file, left - 8, y + 10, "end", "", name[i])
    bar(file, 1, ratio[i], y + 1, ratio[i] < 0.97 ? "slower" : "faster")
    text_at(file, right + 8, y + 10, "start", "", shown(ratio[i]))
    text_at(file, right + 50, y + 10, "start", "note", duration(plx[i]) " / " duration(best(i)))
    y += 16
  }
  close_svg(file)
}
function best(i) { return gcc[i] == "-" ? clang[i] : clang[i] == "-" || gcc[i] + 0 < clang[i] + 0 ? gcc[i] : clang[i] }

function write_table(group,   file, i) {
  file = tables "/" group ".md"
  print "| Case | plx, ns | g++, ns | clang++, ns | ratio |" > file
  print "|---|---|---|---|---|" > file
  for (i = 1; i <= cases; ++i) if (group_of(of[i]) == group)
    printf "| %s | %s | %s | %s | %s%s |\n", cell(name[i]), plx[i], gcc[i], clang[i], ratio[i], \
      behind[i] ? ", behind " target[i] : "" > file
  close(file)
}

function draw_overview(   file, i, p, y, from, to, mean) {
  from = to = 1
  for (p in low) { if (low[p] < from) from = low[p]; if (high[p] > to) to = high[p] }
  file = folder "/overview.svg"
  left = 200; right = 640
  open_svg(file, 820, 84 + program_count * 20, "Ratio to the better peer by program: geometric mean, and from the worst to the best case")
  scale(file, from, to, 56 + program_count * 20)
  y = 50
  for (i = 1; i <= program_count; ++i) {
    p = programs[i]
    if (!count[p]) continue
    mean = 2 ^ (sum[p] / count[p])
    text_at(file, left - 8, y + 11, "end", "", p)
    printf "<line class=\"one\" x1=\"%.1f\" x2=\"%.1f\" y1=\"%d\" y2=\"%d\"/>\n", place(low[p]), place(high[p]), y + 7, y + 7 > file
    bar(file, 1, mean, y + 2, mean < 0.97 ? "slower" : "faster")
    text_at(file, right + 8, y + 11, "start", "", shown(mean))
    text_at(file, right + 50, y + 11, "start", "note", count[p] (count[p] == 1 ? " case" : " cases"))
    y += 20
  }
  text_at(file, 12, y + 22, "start", "note", "Right of 1: plx is faster.")
  close_svg(file)
}

# Each row of the last table on a scale of its own, from 0.
function draw_sizes(   file, r, c, y, most) {
  if (!sizes) return
  file = folder "/size.svg"
  y = 40
  for (r = 1; r <= sizes; ++r) {
    y += 22
    for (c = 1; c <= size_columns; ++c) if (size_value[r, c] != "-") y += 14
  }
  open_svg(file, 820, y, "A program that throws, and one that has <iostream>: less is better")
  y = 34
  for (r = 1; r <= sizes; ++r) {
    text_at(file, 12, y + 12, "start", "", size_name[r])
    y += 18; most = 1
    for (c = 1; c <= size_columns; ++c) if (size_value[r, c] + 0 > most) most = size_value[r, c] + 0
    for (c = 1; c <= size_columns; ++c) {
      if (size_value[r, c] == "-") continue
      text_at(file, 112, y + 9, "end", "note", size_column[c])
      printf "<rect class=\"%s\" x=\"120\" y=\"%d\" width=\"%.1f\" height=\"10\"/>\n", \
        size_column[c] ~ /plx/ ? "faster" : "peer", y, 580 * size_value[r, c] / most + 1 > file
      text_at(file, 128 + 580 * size_value[r, c] / most, y + 9, "start", "", size_value[r, c])
      y += 14
    }
    y += 4
  }
  close_svg(file)
}

END {
  if (failed) exit 1
  if (!cases || !sizes) { print "charts: these are not the results of a whole run" > "/dev/stderr"; exit 1 }
  draw_overview()
  draw_group("exceptions", "Exceptions, types, memory"); write_table("exceptions")
  draw_group("strings", "Strings"); write_table("strings")
  draw_group("containers", "Containers and algorithms"); write_table("containers")
  draw_group("streams", "Streams"); write_table("streams")
  for (i = 1; i <= program_count; ++i) if (group_of(programs[i]) == "others") {
    print "charts: bench/charts.awk has no chart for " programs[i] > "/dev/stderr"
    exit 1
  }
  draw_sizes()
  print table["size"] (table["objects"] == "" ? "" : "\n\n" table["objects"]) > (tables "/size.md")
  print (table["instructions"] == "" ? "Not counted in this run." : table["instructions"]) > (tables "/instructions.md")
  sub(/^g/, "G", summary)
  print "Of " day ", on " machine "; medians of " rounds " runs. " summary "." > (tables "/machine.md")
}
