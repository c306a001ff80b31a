# Prints the binary interface of the library, in the format that check.sh explains. Reads three files:
# the exported names (mangled, TAB, plain), the file names of the debug information of Interface.cpp
# (objdump --dwarf=rawline), and that information itself (objdump --dwarf=info).

function value(line) {
    sub(/^[^:]*: /, "", line)
    sub(/^\(indirect (line )?string, offset: (0x)?[0-9a-f]+\): /, "", line)
    sub(/[ \t]+$/, "", line)
    return line
}

# The offset of the entry that a reference "<0x1f>" means.
function target(line) {
    return match(line, /<0x[0-9a-f]+>/) ? substr(line, RSTART + 3, RLENGTH - 4) : ""
}

function qualified(die,    above) {
    above = parent[die]
    return (above != "" && tag[above] != "compile_unit" ? qualified(above) "::" : "") name[die]
}

function arguments(die,    i, list) {
    for (i = 1; i <= children[die]; ++i) {
        if (tag[child[die, i]] == "formal_parameter" && !(child[die, i] in artificial))
            list = list (list == "" ? "" : ", ") typeName(type[child[die, i]])
    }
    return "(" list ")"
}

function typeName(die) {
    if (die == "")
        return "void"
    if (tag[die] in suffix)
        return typeName(type[die]) suffix[tag[die]]
    if (tag[die] == "typedef")
        return typeName(type[die])
    if (tag[die] == "array_type")
        return typeName(type[die]) "[" bound[child[die, 1]] + 1 "]"
    if (tag[die] == "subroutine_type")
        return typeName(type[die]) " " arguments(die)
    return name[die] == "" ? "unnamed" : qualified(die)
}

function constness(die,    object) {
    object = type[objectOf[die]]
    if (tag[object] == "const_type")
        object = type[object]
    return tag[type[object]] == "const_type" ? " const" : ""
}

# Defined in a public header; instances of templates stand in the records that hold them.
function isOwn(die) {
    return fileOf[die] in ownFile && !(die in declaration) && name[die] != "" && name[die] !~ /</
}

function printRecord(die,    i, part) {
    print qualified(die) "  " size[die] " bytes"
    for (i = 1; i <= children[die]; ++i) {
        part = child[die, i]
        if (tag[part] == "inheritance")
            print "    @" place[part] "  base " typeName(type[part])
        else if (tag[part] == "member" && part in place)
            print "    @" place[part] "  " typeName(type[part]) " " name[part]
        else if (tag[part] == "subprogram" && part in virtual)
            print "    virtual " slot[part] "  " (name[part] ~ /^~/ ? "" : typeName(type[part]) " ") \
                name[part] arguments(part) constness(part)
    }
}

function printEnumeration(die,    i, line) {
    line = qualified(die) "  " size[die] " bytes "
    for (i = 1; i <= children[die]; ++i)
        line = line " " name[child[die, i]] "=" constant[child[die, i]]
    print line
}

BEGIN {
    suffix["pointer_type"] = "*"
    suffix["reference_type"] = "&"
    suffix["rvalue_reference_type"] = "&&"
    suffix["const_type"] = " const"
    suffix["volatile_type"] = " volatile"
}

FNR == 1 { ++file }

file == 1 {
    tab = index($0, "\t")
    plain[substr($0, 1, tab - 1)] = substr($0, tab + 1)
    next
}

# Own files lie in a folder that the build names relative to the source tree.
file == 2 && /Directory Table/ { inFolders = 1 }
file == 2 && /File Name Table/ { inFolders = 0; inFiles = 1 }
file == 2 && inFolders && $NF ~ /^camdata(\/|$)/ { ownFolder[$1] }
file == 2 && inFiles && $2 in ownFolder { ownFile[$1] }
file == 2 { next }

/^ *<[0-9a-f]+><[0-9a-f]+>: Abbrev Number: [1-9]/ {
    match($0, /<[0-9a-f]+></)
    depth = substr($0, RSTART + 1, RLENGTH - 3) + 0
    rest = substr($0, RSTART + RLENGTH)
    die = substr(rest, 1, index(rest, ">") - 1)
    match($0, /DW_TAG_[a-zA-Z_]+/)
    tag[die] = substr($0, RSTART + 7, RLENGTH - 7)
    at[depth] = die
    if (depth > 0) {
        parent[die] = at[depth - 1]
        child[parent[die], ++children[parent[die]]] = die
    }
    order[++count] = die
    next
}
/DW_AT_name / { name[die] = value($0) }
/DW_AT_linkage_name/ { linkage[die] = value($0) }
/DW_AT_type / { type[die] = target($0) }
/DW_AT_object_pointer/ { objectOf[die] = target($0) }
/DW_AT_byte_size/ { size[die] = value($0) }
/DW_AT_decl_file/ { fileOf[die] = value($0) }
/DW_AT_data_member_location/ { place[die] = value($0) }
/DW_AT_const_value/ { constant[die] = value($0) }
/DW_AT_upper_bound/ { bound[die] = value($0) }
/DW_AT_artificial/ { artificial[die] }
/DW_AT_declaration/ { declaration[die] }
/DW_AT_virtuality/ { virtual[die] }
/DW_AT_vtable_elem_location/ && match($0, /DW_OP_constu: [0-9]+/) {
    slot[die] = substr($0, RSTART + 14, RLENGTH - 14)
}

# What the debug information tells of an exported name besides the name itself.
function form(die,    isMember) {
    if (tag[die] != "subprogram")
        return " : " typeName(type[die])
    isMember = tag[parent[die]] ~ /^(class|structure)_type$/
    return " -> " typeName(type[die]) (isMember && !(die in objectOf) ? ", static" : "")
}

# A function outside of classes, of which the debug information tells only when Interface.cpp uses it.
function isFreeFunction(text) {
    sub(/\(.*/, "", text)
    return text !~ /[^:]::[^:]/ && text !~ / /
}

function printExports(    i, die, forms, sorter) {
    for (i = 1; i <= count; ++i) {
        die = order[i]
        if (linkage[die] in plain && !(linkage[die] in forms))
            forms[linkage[die]] = form(die)
    }
    sorter = "LC_ALL=C sort -u"
    for (i in plain) {
        if (!(i in forms) && isFreeFunction(plain[i]))
            forms[i] = " -> unknown: Interface.cpp does not use it"
        print plain[i] forms[i] | sorter
    }
    close(sorter)
}

# Own types in the order of their names.
function printTypes(pattern,    i, k, number, sorted) {
    for (i = 1; i <= count; ++i) {
        if (tag[order[i]] !~ pattern || !isOwn(order[i]))
            continue
        for (k = number++; k > 0 && qualified(sorted[k]) > qualified(order[i]); --k)
            sorted[k + 1] = sorted[k]
        sorted[k + 1] = order[i]
    }
    for (i = 1; i <= number; ++i) {
        if (tag[sorted[i]] == "enumeration_type")
            printEnumeration(sorted[i])
        else
            printRecord(sorted[i])
    }
}

END {
    print "# Exported names"
    printExports()
    print "\n# Classes and structures"
    printTypes("^(class|structure)_type$")
    print "\n# Enumerations"
    printTypes("^enumeration_type$")
}
