#!/usr/bin/env bash
# bench-chart.sh bench.json: the ratios of `make bench` as a picture, SVG on standard output. For each message, with
# other values in turn, how many times as long as the library each peer takes; a step of the scale is a doubling.
set -euo pipefail

awk '
function text(key, line,   rest) {
    rest = substr(line, index(line, "\"" key "\": \"") + length(key) + 5)
    return substr(rest, 1, index(rest, "\"") - 1)
}
function number(key, line,   rest) {
    rest = substr(line, index(line, "\"" key "\": ") + length(key) + 4)
    return rest + 0
}
function place(ratio) {
    return left + (ratio > 1 ? log(ratio) / log(2) * doubling : 0)
}
function label(x, y, anchor, size, content) {
    return sprintf("<text x=\"%.1f\" y=\"%.1f\" text-anchor=\"%s\" font-size=\"%d\">%s</text>\n", x, y, anchor, size, content)
}
BEGIN {
    left = 190; doubling = 84; bar = 11; gap = 12; y = 46
    split("#4c78a8 #f58518 #54a24b #b279a2", color, " ")
}
# One line for each message, as the benchmark writes it.
/"direction"/ && /"peers"/ && number("texts", $0) > 1 {
    direction = text("direction", $0)
    if (direction != before) {
        if (before != "")
            y += 26
        body = body label(left, y, "start", 14, (direction == "compose" ? "Composing" : "Analysing") \
            ", library = 1") 
        y += 12
        before = direction
        top[direction] = y
    }
    body = body label(left - 10, y + 27, "end", 12, text("message", $0))
    body = body label(left - 10, y + 41, "end", 10, sprintf("%.2f us", number("ns", $0) / 1000))
    peers = substr($0, index($0, "\"peers\": {") + 10)
    count = 0
    while (match(peers, /"[^"]+": \{"ns": [0-9.]+, "ratio": [0-9.]+/)) {
        peer = substr(peers, RSTART, RLENGTH)
        peers = substr(peers, RSTART + RLENGTH)
        name = substr(peer, 2, index(substr(peer, 2), "\"") - 1)
        ratio = number("ratio", peer)
        ++count
        body = body sprintf("<rect x=\"%d\" y=\"%.1f\" width=\"%.1f\" height=\"%d\" fill=\"%s\"/>\n", left, y, \
            place(ratio) - left, bar - 1, color[count])
        body = body label(place(ratio) + 5, y + bar - 2, "start", 10, sprintf("%s %.1f", name, ratio))
        if (place(ratio) > widest)
            widest = place(ratio)
        y += bar
    }
    y += gap
    bottom[direction] = y - gap
}
END {
    if (before == "") {
        print "no messages with values in turn" > "/dev/stderr"
        exit 1
    }
    width = widest + 110
    printf "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %d %d\" font-family=\"sans-serif\" fill=\"#333\">\n", width, y + 8
    printf "<rect width=\"100%%\" height=\"100%%\" fill=\"#fff\"/>\n"
    printf "%s", label(left, 20, "start", 12, "How many times as long as the library: each message with 128 texts in turn")
    for (direction in top)
        for (ratio = 1; place(ratio) <= widest; ratio *= 2)
            printf "<path d=\"M%.1f %dV%d\" stroke=\"#ddd\"/>\n%s", place(ratio), top[direction], bottom[direction], \
                label(place(ratio), bottom[direction] + 11, "middle", 10, ratio)
    printf "%s</svg>\n", body
}' "${1:?usage: bench-chart.sh bench.json}"
