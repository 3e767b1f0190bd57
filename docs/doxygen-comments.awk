# Lets Doxygen read the headers' plain comments as they are written, so that the headers keep one comment
# style for readers and for the reference alike. Doxygen runs it on each header; every line stays on its line,
# so that warnings point at the header's own text.
#
#   // text            above a declaration                  becomes  /// text
#   code;  // text     after a member or an enumerator      becomes  code;  ///< text
#
# A comment heads the paragraph of declarations under it, up to the next blank line, comment or access label
# (a setter with its getter, a set of overloads, the accessors of one section), so the paragraph becomes a
# member group whose members share it: a declaration that the comment does not speak for needs a comment of
# its own. A paragraph of functions takes no fields or constants, and one of fields no functions. Constructors, destructors and assignments never join a paragraph they do not start, nor does
# anything join theirs: each of those needs its own words. An override of another name ends the paragraph: it
# has its base's comment unless it has its own.
#
# A header's opening comment speaks for the class it opens onto; when the header opens onto anything else
# (declarations, enumerations, several small types), it is the file's description.
#
# Comments inside function bodies, after a closing brace and NOLINT/clang-format markers stay plain comments.

# The line's code up to its comment (string and character literals skipped); sets comment to the column of the
# "//" that starts the comment, or 0.
function code_part(line, i, c, quote) {
  comment = 0
  quote = ""
  for (i = 1; i <= length(line); i++) {
    c = substr(line, i, 1)
    if (quote != "") {
      if (c == "\\") i++
      else if (c == quote) quote = ""
    } else if (c == "\"" || c == "'") {
      quote = c
    } else if (c == "/" && substr(line, i + 1, 1) == "/") {
      comment = i
      return substr(line, 1, i - 1)
    }
  }
  return line
}

function strip(text) {
  gsub(/"[^"]*"/, "", text)
  while (gsub(/<[^<>]*>/, "", text) > 0) {}
  return text
}

# What the declaration text before an opening brace opens: "enum", "scope" (class, struct, union, namespace,
# linkage block: members Doxygen documents) or "body" (a function body or a braced initialiser).
function scope_kind(text) {
  text = " " strip(text) " "
  if (index(text, "(") > 0) return "body"
  if (text ~ /[^A-Za-z0-9_]enum[^A-Za-z0-9_]/) return "enum"
  if (text ~ /[^A-Za-z0-9_](class|struct|union|namespace|extern)[^A-Za-z0-9_]/) return "scope"
  return "body"
}

# The name a class or struct definition gives (export macros and "final" skipped), or "".
function class_name(text, n, i, words, w, found) {
  text = strip(text)
  sub(/:[^:].*$/, "", text)
  n = split(text, words, /[^A-Za-z0-9_]+/)
  found = 0
  for (i = 1; i <= n; i++) {
    w = words[i]
    if (w == "class" || w == "struct" || w == "union") found = 1
    else if (found && w != "" && w != "final" && w !~ /_EXPORT$/) return w
  }
  return ""
}

function in_body(i) {
  for (i = 1; i <= depth; i++)
    if (kind[i] == "body") return 1
  return 0
}

# Follows the braces of a line's code; pending holds the declaration text since the last ; { or }.
function track(code, i, c) {
  for (i = 1; i <= length(code); i++) {
    c = substr(code, i, 1)
    if (c == "{") {
      kind[++depth] = scope_kind(pending)
      cls[depth] = (kind[depth] == "scope") ? class_name(pending) : ""
      if (!opened) opened = (kind[depth] == "scope" && cls[depth] != "") ? "class" : "other"
      pending = ""
    } else if (c == "}") {
      if (depth > 0) depth--
      pending = ""
    } else if (c == ";") {
      if (!opened && pending !~ /^[ \t]*$/) opened = "other"
      pending = ""
    } else {
      pending = pending c
    }
  }
  if (pending !~ /^[ \t]*$/) pending = pending " "
}

# Constructor, destructor or assignment of the class the line's scope belongs to?
function special(code, s, name) {
  if (index(code, "(") == 0) return 0
  s = substr(code, 1, index(code, "(") - 1)
  sub(/[ \t]+$/, "", s)
  if (s ~ /operator[ \t]*=$/) return 1
  if (!match(s, /~?[A-Za-z_][A-Za-z0-9_]*$/)) return 0
  name = substr(s, RSTART, RLENGTH)
  sub(/^~/, "", name)
  return depth > 0 && name == cls[depth]
}

# What a declaration is about: a function's name without a "set" prefix (so that a setter and its getter
# share it, as overloads do), or "" for a declaration that is no function (a field, a constant, a type).
function stem(code, s) {
  if (index(code, "(") == 0) return ""
  s = substr(code, 1, index(code, "(") - 1)
  sub(/[ \t]+$/, "", s)
  if (!match(s, /~?[A-Za-z_][A-Za-z0-9_]*$/)) return "?"
  s = substr(s, RSTART, RLENGTH)
  if (s ~ /^set[A-Z]/) s = tolower(substr(s, 4, 1)) substr(s, 5)
  return s
}

function close_run(at, line) {
  # A declaration of several names ("float x, y, z;") is a run by itself.
  if (runCount >= 2 || (runCount == 1 && runMulti)) {
    line = out[runStart]
    match(line, /^[ \t]*/)
    out[runStart] = substr(line, 1, RLENGTH) "/**@{*/ " substr(line, RLENGTH + 1)
    at = cut[runEnd]
    line = out[runEnd]
    if (at > 0) out[runEnd] = substr(line, 1, at - 1) "/**@}*/ " substr(line, at)
    else out[runEnd] = line " /**@}*/"
  }
  runCount = 0
}

BEGIN { depth = 0; pending = ""; continued = 0; runCount = 0; doc = 0; header = 1; opened = "" }

{
  line = $0
  out[NR] = line
  cut[NR] = 0
  # Preprocessor lines (and their continuations) are neither code to follow nor comments to convert.
  if (continued || line ~ /^[ \t]*#/) {
    continued = (line ~ /\\$/)
    if (header && line ~ /^#pragma once/) pragma = NR
    header = 0
    close_run()
    doc = 0
    next
  }
  code = code_part(line)
  text = (comment > 0) ? substr(line, comment + 2) : ""
  # A NOLINT marker's explanation documents the member: "// NOLINT: implicit by design" reads "implicit by design".
  if (comment > 0 && code !~ /^[ \t]*$/ && text ~ /^[ \t]*NOLINT[^:]*:/) sub(/^[ \t]*NOLINT[^:]*:/, "", text)
  plain = (text ~ /^[\/!]/ || text ~ /^[ \t]*(NOLINT|clang-format)/)
  bodyBefore = in_body()
  blank = (code ~ /^[ \t]*$/)
  if (header && !(blank && comment > 0)) header = 0

  if (comment > 0 && !plain && !bodyBefore) {
    if (blank) out[NR] = code "///" text
    else if (code !~ /^[ \t]*}/) out[NR] = code "///<" text
  }
  # A paragraph's closing mark goes before the line's comment, never into it.
  if (comment > 0 && !blank) cut[NR] = comment

  # Every PDU class takes a received image through one constructor of the same form; say so once, here.
  if (comment == 0 && !bodyBefore && code ~ /\(const DtNetViewControlPdu\* image, DtBufferPlaceHolder\* holder,/)
    imageCtor = 1
  if (imageCtor && !bodyBefore && code ~ /\);[ \t]*$/) {
    out[NR] = code "  ///< Takes a copy of a received image; DtVistralControlPdu::createFromNet builds received PDUs through this."
    imageCtor = 0
  }
  # And every PDU class's plain constructor builds a new image of the class.
  if (comment == 0 && !bodyBefore && !doc && code ~ /^[ \t]*explicit Dt[A-Za-z0-9]+\(DtBufferPlaceHolder\* holder = nullptr\);/) {
    if (FILENAME ~ /VcPdu\.h$/)
      out[NR] = code "  ///< A new PDU of the class at its full length, zero but for the header and the command: no field is ignored."
    else
      out[NR] = code "  ///< A new PDU of the class in its layout, at the length of its fixed fields."
  }
  inEnum = (depth > 0 && kind[depth] == "enum")
  if (bodyBefore) {
    track(code)
    if (runCount > 0 && !in_body()) runEnd = NR
  } else if (blank) {
    # A declaration never runs across an empty line (macro invocations above one end without a semicolon).
    if (comment == 0) pending = ""
    close_run()
    doc = (comment > 0 && !plain)
  } else if (code ~ /^[ \t]*(public|protected|private)[ \t]*:/ || code ~ /^[ \t]*}/ || inEnum) {
    close_run()
    doc = 0
    track(code)
    if (code ~ /^[ \t]*(public|protected|private)[ \t]*:/) pending = ""
  } else if (index(code, "{") > 0 && scope_kind(pending substr(code, 1, index(code, "{") - 1)) != "body") {
    # A class, namespace or enumeration is no member of a run.
    close_run()
    doc = 0
    track(code)
  } else {
    starts = (pending ~ /^[ \t]*$/)
    if (starts) {
      isSpecial = special(code)
      if (doc) {
        close_run()
        runStart = NR; runEnd = NR; runCount = 1; runSpecial = isSpecial; runStem = stem(code)
        runMulti = (index(code, "(") == 0 && code ~ /,/)
      } else if (runCount > 0 && !isSpecial && !runSpecial && (stem(code) == runStem || code !~ /[ \t]override[ \t;]/) && ((stem(code) == "") == (runStem == ""))) {
        if (stem(code) != runStem) mixed = mixed FILENAME ":" NR ": " code "\n"
        runCount++
        runEnd = NR
      } else {
        close_run()
      }
      doc = 0
    } else if (runCount > 0) {
      runEnd = NR
    }
    track(code)
  }
}

END {
  close_run()
  # With -v review=1: the declarations that joined a paragraph headed by another name, for a reader to check.
  if (review && mixed != "") printf "%s", mixed > "/dev/stderr"
  # The opening comment belongs to the file unless the header opens onto a class definition.
  if (pragma && opened != "class") out[pragma] = "/// \\file"
  for (i = 1; i <= NR; i++) print out[i]
}
