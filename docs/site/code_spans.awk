# Doxygen takes an apostrophe in `...` for the end of a quotation, and the rest of the page with it. In ``...``
# it stands for itself.
/^ *```/ { in_block = !in_block; print; next }
in_block { print; next }
{
    count = split($0, parts, "`")
    if (count % 2 == 0 || /``/) {
        print
        next
    }
    line = parts[1]
    for (k = 2; k < count; k += 2) {
        mark = index(parts[k], "'") > 0 ? "``" : "`"
        line = line mark parts[k] mark parts[k + 1]
    }
    print line
}
