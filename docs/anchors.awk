# Filter of doxygen for the pages of the manual: gives headings the anchors that other viewers of Markdown give them by
# themselves, and leads links such as page.md#heading there. An anchor that no heading has fails.
function page_of(path) {
    sub(/.*\//, "", path)
    sub(/\.md$/, "", path)
    return path
}

/^ *```/ { fenced = !fenced }

!fenced && /^##+ / {
    id = tolower($0)
    sub(/^#+ /, "", id)
    gsub(/[^a-z0-9 _-]/, "", id)
    gsub(/ /, "-", id)
    $0 = $0 " {#" page_of(FILENAME) "-" id "}"
}

!fenced {
    while (match($0, /\]\([A-Za-z\/.-]*\.md#[a-z0-9_-]*\)/)) {
        link = substr($0, RSTART + 2, RLENGTH - 3)
        split(link, part, "#")
        $0 = substr($0, 1, RSTART - 1) "](@ref " page_of(part[1]) "-" part[2] ")" substr($0, RSTART + RLENGTH)
    }
}

{ print }
