#!/bin/sh
# Draws the ratios of a table of benchmark results that have a bound as bars, to the standard output as SVG:
# bench/plot-ratios.sh bench/RESULTS.md >bench/ratios.svg
exec awk -F ' *[|] *' '
  function escaped(text) { gsub(/&/, "\\&amp;", text); gsub(/</, "\\&lt;", text); return text }
  $6 ~ /^[0-9.]+$/ && $7 ~ /^[0-9.]/ && $2 !~ /growth/ {
    name[++count] = escaped($2)
    ratio[count] = $6
    bound[count] = $7 + 0
    share[count] = $6 / bound[count]
    if (share[count] + 0 > most) most = share[count]
  }
  END {
    if (!count) { print "no ratios with bounds in " FILENAME | "cat >&2"; exit 1 }
    left = 300; width = 380; row = 20; top = 50
    if (most < 1) most = 1
    scale = width / most
    printf "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %d %d\" font-family=\"Helvetica, Arial, sans-serif\" font-size=\"12\">\n",
      left + width + 120, top + count * row + 20
    print "<title>Times against their bounds</title>"
    print "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>"
    print "<text x=\"10\" y=\"20\" font-size=\"14\" font-weight=\"bold\">Time against the floor, as a share of what is allowed</text>"
    print "<text x=\"10\" y=\"38\" fill=\"#555\">the line is the bound; behind each bar the ratio to the floor, and its bound</text>"
    for (i = 1; i <= count; ++i) {
      y = top + (i - 1) * row
      colour = (share[i] > 1) ? "#c95b5b" : "#6f9bd1"
      printf "<text x=\"%d\" y=\"%d\" text-anchor=\"end\">%s</text>\n", left - 8, y + 13, name[i]
      printf "<rect x=\"%d\" y=\"%d\" width=\"%.1f\" height=\"%d\" fill=\"%s\"/>\n", left, y + 3, share[i] * scale, row - 6, colour
      printf "<text x=\"%.1f\" y=\"%d\">%s of %s</text>\n", left + (share[i] < 1 ? 1 : share[i]) * scale + 6, y + 13, ratio[i], bound[i]
    }
    printf "<path d=\"M%.1f %dV%d\" stroke=\"#222\"/>\n", left + scale, top - 4, top + count * row + 4
    print "</svg>"
  }
' "$1"
