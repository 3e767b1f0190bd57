// HLA Evolved FOM modules (OMT 1516-2010 XML) as the connection's object model: the interaction classes and
// their parameters, read from the element tree; everything else in a module is read past. The reader walks
// the text once with an explicit stack, so hostile nesting costs memory in proportion to the file, never the
// call stack.
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tarvex/dtException.h"
#include "tarvex/dtFedFile.h"

class DtFedFile::ModuleParser {
 public:
  ModuleParser(const std::string& text, const std::string& source) : text_(text), source_(source) {}

  DtFedFile run() {
    while (i_ < text_.size()) {
      if (text_[i_] == '<') {
        markup();
      } else {
        character();
      }
    }
    if (!open_.empty()) fail("element <" + open_.back().name + "> is not closed");
    if (!sawModel_) fail("not a FOM module: no <objectModel> element");
    return build();
  }

 private:
  struct Element {
    std::string name;
    int cls;  // the interaction class this element belongs to, or -1
    bool declaresClass;
  };
  struct Class {
    int parent;
    std::string name;
    std::vector<std::string> parameters;
    int line;
  };

  [[noreturn]] void fail(const std::string& problem) const {
    DT_THROW("FOM module " + source_ + ", line " + std::to_string(line_) + ": " + problem);
  }

  void advance() {
    if (text_[i_] == '\n') ++line_;
    ++i_;
  }
  bool startsWith(const char* s) const { return text_.compare(i_, std::strlen(s), s) == 0; }
  void skipPast(const char* end, const char* what) {
    while (i_ < text_.size() && !startsWith(end)) advance();
    if (i_ >= text_.size()) fail(std::string("unterminated ") + what);
    i_ += std::strlen(end);
  }

  void character() {
    if (text_[i_] == '&') {
      content_ += entity();
      return;
    }
    content_ += text_[i_];
    advance();
  }

  std::string entity() {
    static const char* const names[][2] = {
        {"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}, {"&quot;", "\""}, {"&apos;", "'"}};
    for (const auto& n : names) {
      if (startsWith(n[0])) {
        i_ += std::strlen(n[0]);
        return n[1];
      }
    }
    fail("unknown entity or character reference");
  }

  void markup() {
    if (startsWith("<!--")) return skipPast("-->", "comment");
    if (startsWith("<![CDATA[")) {
      i_ += 9;
      const std::size_t from = i_;
      skipPast("]]>", "CDATA section");
      content_ += text_.substr(from, i_ - 3 - from);
      return;
    }
    if (startsWith("<?")) return skipPast("?>", "processing instruction");
    if (startsWith("<!")) return skipPast(">", "declaration");
    if (startsWith("</")) return close();
    openTag();
  }

  std::string tagName() {
    const std::size_t from = i_;
    while (i_ < text_.size() && std::strchr(" \t\r\n/>", text_[i_]) == nullptr) ++i_;
    std::string name = text_.substr(from, i_ - from);
    if (name.empty()) fail("a tag without a name");
    const auto colon = name.rfind(':');  // the namespace prefix is not part of the element's meaning
    return colon == std::string::npos ? name : name.substr(colon + 1);
  }

  void openTag() {
    ++i_;
    const std::string name = tagName();
    bool selfClosing = false;
    char quote = 0;
    for (;; advance()) {
      if (i_ >= text_.size()) fail("unterminated tag <" + name + ">");
      const char c = text_[i_];
      if (quote != 0) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else if (c == '>') {
        selfClosing = text_[i_ - 1] == '/';
        ++i_;
        break;
      }
    }
    if (open_.empty()) {
      if (sawModel_) fail("a second document element <" + name + ">");
      if (name != "objectModel") fail("not a FOM module: the document is <" + name + ">");
      sawModel_ = true;
    }
    content_.clear();
    const int cls = open_.empty() ? -1 : open_.back().cls;
    if (name == "interactionClass" && (parentIs("interactions") || parentIs("interactionClass"))) {
      classes_.push_back(Class{cls, "", {}, line_});
      open_.push_back(Element{name, static_cast<int>(classes_.size()) - 1, true});
    } else {
      open_.push_back(Element{name, cls, false});
    }
    if (selfClosing) ended();
  }

  void close() {
    i_ += 2;
    const std::string name = tagName();
    while (i_ < text_.size() && text_[i_] != '>') advance();
    if (i_ >= text_.size()) fail("unterminated tag </" + name + ">");
    ++i_;
    if (open_.empty() || open_.back().name != name) fail("</" + name + "> closes no open element");
    ended();
  }

  bool parentIs(const char* name) const { return !open_.empty() && open_.back().name == name; }

  // The element on top of the stack has ended; its text is in content_.
  void ended() {
    const Element e = open_.back();
    open_.pop_back();
    if (e.name == "name" && e.cls >= 0) {
      const std::string value = trimmed(content_);
      if (value.empty()) fail("an empty <name>");
      Class& c = classes_[static_cast<std::size_t>(e.cls)];
      if (parentIs("interactionClass")) {
        if (!c.name.empty()) fail("interaction class " + c.name + " has two names");
        c.name = value;
      } else if (parentIs("parameter") && open_.size() >= 2 &&
                 open_[open_.size() - 2].name == "interactionClass") {
        for (const std::string& known : c.parameters)
          if (known == value) fail("parameter " + value + " declared twice in class " + c.name);
        c.parameters.push_back(value);
      }
    } else if (e.declaresClass && classes_[static_cast<std::size_t>(e.cls)].name.empty()) {
      fail("an interaction class without a <name>");
    }
    content_.clear();
  }

  static std::string trimmed(const std::string& s) {
    const char* space = " \t\r\n";
    const auto first = s.find_first_not_of(space);
    if (first == std::string::npos) return "";
    return s.substr(first, s.find_last_not_of(space) - first + 1);
  }

  // Each class after its superclass, with the inherited parameters first.
  DtFedFile build() const {
    DtFedFile out;
    out.source_ = source_;
    for (const Class& c : classes_) {
      DtFedInteractionClass cls;
      cls.name = c.name;
      cls.line = c.line;
      cls.fullName = c.name;
      if (c.parent >= 0) {
        const DtFedInteractionClass& parent = out.interactions_[static_cast<std::size_t>(c.parent)];
        cls.fullName = parent.fullName + "." + c.name;
        cls.parameters = parent.parameters;
      }
      for (const std::string& p : c.parameters) cls.parameters.push_back(p);
      if (out.findExact(cls.fullName))
        DT_THROW("FOM module " + source_ + ", line " + std::to_string(c.line) + ": interaction class " +
                 cls.fullName + " declared twice");
      out.interactions_.push_back(std::move(cls));
    }
    return out;
  }

  const std::string& text_;
  const std::string& source_;
  std::size_t i_ = 0;
  int line_ = 1;
  std::vector<Element> open_;
  std::vector<Class> classes_;
  std::string content_;
  bool sawModel_ = false;
};

DtFedFile DtFedFile::readFomModule(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) DT_THROW("Cannot read FOM module " + path + ": " + std::strerror(errno));
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) DT_THROW("Cannot read FOM module " + path);
  return parseFomModule(text.str(), path);
}

DtFedFile DtFedFile::parseFomModule(const std::string& text, const std::string& source) {
  return ModuleParser(text, source).run();
}

void DtFedFile::merge(const DtFedFile& other) {
  for (const DtFedInteractionClass& theirs : other.interactions_) {
    DtFedInteractionClass* mine = nullptr;
    for (DtFedInteractionClass& c : interactions_)
      if (c.fullName == theirs.fullName) mine = &c;
    if (mine == nullptr) {
      interactions_.push_back(theirs);
      continue;
    }
    for (const std::string& p : theirs.parameters) {
      bool known = false;
      for (const std::string& q : mine->parameters) known = known || q == p;
      if (!known) mine->parameters.push_back(p);
    }
  }
}
