# Writes each ```cpp block of the Markdown files it reads to OUT/examples/<page>-<section>[-n].cpp, and a page
# of \example entries (OUT/examples.dox) that makes them the reference's examples: each class page then links
# the examples that use it. Run as: awk -v out=DIR -f examples.awk README.md docs/*.md
function slug(text) {
  text = tolower(text)
  gsub(/[^a-z0-9]+/, "-", text)
  gsub(/^-|-$/, "", text)
  return text
}
FNR == 1 {
  page = FILENAME
  sub(/.*\//, "", page)
  sub(/\.md$/, "", page)
  page = (page == "README") ? "readme" : slug(page)
  section = ""
}
fence && /^```[ \t]*$/ { fence = 0; if (file != "") close(file); file = ""; next }
fence { if (file != "") print > file; next }
/^```/ {
  fence = 1
  file = ""
  if ($0 ~ /^```cpp[ \t]*$/) {
    name = page (section != "" ? "-" section : "")
    n = ++count[name]
    if (n > 1) name = name "-" n
    file = out "/examples/" name ".cpp"
    printf "" > file
    names[++total] = name
    where[total] = FILENAME
    title[total] = heading
  }
  next
}
# A page's title (level 1) names no section; "{#label}" anchors are not part of a heading's text.
/^# / { heading = $0; sub(/^# +/, "", heading); sub(/ *\{#[^}]*\} *$/, "", heading); section = ""; next }
/^#+ / { heading = $0; sub(/^#+ +/, "", heading); sub(/ *\{#[^}]*\} *$/, "", heading); section = slug(heading) }
END {
  dox = out "/examples.dox"
  print "/**" > dox
  for (i = 1; i <= total; i++) {
    src = where[i]
    sub(/.*\//, "", src)
    printf "\\example %s.cpp\nFrom %s, section \"%s\".\n\n", names[i], src, title[i] > dox
  }
  print "*/" > dox
}
