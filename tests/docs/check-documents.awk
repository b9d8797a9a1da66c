# See check-documents.sh. Reads Markdown; prints what it does not find and ends with 1.

# A whole file at once: no text file has the separator.
function slurp(file,    separator, text) {
    separator = RS
    RS = "\001"
    getline text < file
    RS = separator
    close(file)
    return text
}

function fail(what) {
    printf "%s:%d: %s\n", FILENAME, FNR, what
    failures++
}

function isForeign(word) { return word in foreignNames }

function inCode(text) { return index(codeText, text) > 0 }

# A file of the tree, by its path or by its name alone; folders end in "/".
function isFile(path) {
    return path in files || (path "/") in files || index(fileList, "/" path "\n") > 0
}

function folderOf(path) {
    sub(/[^\/]*$/, "", path)
    return path
}

# Joins a relative link to the folder of its document.
function resolved(link,    path) {
    path = folderOf(FILENAME) link
    while (sub(/[^\/]+\/\.\.\//, "", path)) continue
    return path
}

function checkLinks(line,    link) {
    while (match(line, /\]\([^)]+\)/)) {
        link = substr(line, RSTART + 2, RLENGTH - 3)
        line = substr(line, RSTART + RLENGTH)
        if (link ~ /^(https?:|#)/) continue
        sub(/#.*/, "", link)
        links++
        if (!isFile(resolved(link))) fail("no such file: " link)
    }
}

# A command of this project: its name and every option must be known.
function checkCommand(command,    words, count, word, i) {
    count = split(command, words, /[ \t]+/)
    for (i = 1; i <= count; i++) {
        word = words[i]
        gsub(/[\[\]"',;]/, "", word)
        if (word == "#") return
        if (word ~ /^--[a-z]/) {
            sub(/=.*/, "", word)
            if (!isForeign(word) && !inCode("\"" word) && !inCode(word)) fail("no option " word " in: " command)
        } else if (word ~ /^(\.\/)?scripts\//) {
            if (!isFile(word)) fail("no script " word)
        }
    }
    word = words[2]
    if (words[1] == "jswctl" && word ~ /^[a-z]/ && !inCode("\"" word "\"")) fail("no command jswctl " word)
    if (words[1] ~ /^(jswctl|qldemo|qlupdater)(\.exe)?$/) commands++
}

# One word that could be somebody's: a name with a capital, an underscore or a point inside.
function checkWord(word) {
    gsub(/^[("'=]+|[)"',;:.=]+$/, "", word)
    if (word == "" || isForeign(word)) return
    if (word ~ /^%[A-Z]+%/ || word ~ /^[0-9]/ || word ~ /…/) return
    if (word ~ /^(scripts|docs|include|jsw|PublicLib|window|samples|tests|tools|bench|cmake)\//) {
        sub(/\/\*.*$/, "/", word)
        if (word !~ /[{*]/ && !isFile(word)) fail("no such file: " word)
        return
    }
    if (word ~ /\.(dll|exe|h|cpp|sh|xml|txt|loc|jbb|jobscript|md|cmake|png)$/) {
        if (!isFile(word) && !inCode(word)) fail("no such file: " word)
        return
    }
    if (word ~ /^[A-Za-z_][A-Za-z0-9_]*$/ && word ~ /[A-Z_]/) {
        words++
        if (!inCode(word)) fail("not in the code: " word)
    }
}

function checkSpan(span,    parts, count, i) {
    gsub(/<[^<>]*>/, "", span)  # <id>jswv.dll
    if (span ~ /^(jswctl|qldemo|qlupdater|scripts\/[a-z-]+\.sh|cmake)( |$)/) {
        checkCommand(span)
        return
    }
    if (isForeign(span)) return
    # A text of the log, or a whole name: there as it is written.
    if (inCode(span)) {
        spans++
        return
    }
    count = split(span, parts, /[\\ |]+/)
    if (count > 1 && span !~ /\\/ && span ~ /^[A-Z].* .* / && span !~ /[<=(%]/) {
        fail("not a text of the code: " span)
        return
    }
    for (i = 1; i <= count; i++) checkWord(parts[i])
}

function checkSpans(line,    span) {
    while (match(line, /`[^`]+`/)) {
        span = substr(line, RSTART + 1, RLENGTH - 2)
        line = substr(line, RSTART + RLENGTH)
        gsub(/\\\|/, "|", span)
        checkSpan(span)
    }
}

# reg add KEY /v NAME ...: the key's parts and the name are in the code.
function checkReg(line,    parts, count, i) {
    count = split(line, parts, /[ \t\\]+/)
    for (i = 3; i <= count; i++) {
        if (parts[i] !~ /^\//) checkWord(parts[i])
    }
}

BEGIN {
    codeText = slurp(code)
    fileList = "\n" slurp(code ".files")
    count = split(fileList, lines, "\n")
    for (i = 1; i <= count; i++) files[lines[i]]
    gsub(/\n/, "\n/", fileList)
    while ((getline line < foreign) > 0) {
        sub(/ *#.*/, "", line)
        if (line != "") foreignNames[line]
    }
}

FNR == 1 { inBlock = 0 }
/^```/ { inBlock = !inBlock; next }
inBlock || /^    [^ ]/ {
    line = $0
    sub(/^ +/, "", line)
    if (line ~ /^(jswctl|qldemo|qlupdater|scripts\/)/) checkCommand(line)
    if (line ~ /^reg /) checkReg(line)
    if (inBlock) next
}
{ checkLinks($0); checkSpans($0) }

END {
    if (links < 20 || words + spans < 100 || commands < 3) {
        print "the documents hardly name anything: the check itself is broken"
        exit 1
    }
    printf "%d links, %d names and texts, %d commands\n", links, words + spans, commands
    exit failures > 0
}
