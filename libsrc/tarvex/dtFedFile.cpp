#include "tarvex/dtFedFile.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string_view>
#include <utility>

#include "tarvex/dtException.h"

namespace {
// Deeper nesting than any object model needs is refused, so hostile input cannot exhaust the stack.
constexpr int kMaxDepth = 64;

struct Node {
  bool list = false;
  std::string atom;
  int line = 0;
  std::vector<Node> children;

  bool isAtom() const { return !list; }
};

bool sameWord(const std::string& a, const char* b) {
  if (a.size() != std::strlen(b)) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto lower = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

bool oneOf(const std::string& word, std::initializer_list<const char*> choices) {
  for (const char* c : choices)
    if (sameWord(word, c)) return true;
  return false;
}

// The head word of a list, or "" when it has none.
const std::string& head(const Node& n) {
  static const std::string none;
  return n.list && !n.children.empty() && n.children[0].isAtom() ? n.children[0].atom : none;
}
}  // namespace

class DtFedFile::Parser {
 public:
  Parser(const std::string& text, const std::string& source) : text_(text), source_(source) {}

  DtFedFile run() {
    std::vector<Node> top = tokenize();
    if (top.empty()) fail(line_, "no (FED ...) list");
    if (top.size() > 1) fail(top[1].line, "text after the (FED ...) list");
    const Node& fed = top[0];
    if (!sameWord(head(fed), "FED")) fail(fed.line, "the file must be one (FED ...) list");
    DtFedFile out;
    out.source_ = source_;
    for (std::size_t i = 1; i < fed.children.size(); ++i) section(fed.children[i], out);
    return out;
  }

 private:
  [[noreturn]] void fail(int line, const std::string& problem) const {
    DT_THROW("FED file " + source_ + ", line " + std::to_string(line) + ": " + problem);
  }

  std::vector<Node> tokenize() {
    std::vector<Node> stack(1);  // stack[0] collects the top-level nodes
    std::size_t i = 0;
    while (i < text_.size()) {
      const char c = text_[i];
      if (c == '\n') {
        ++line_;
        ++i;
      } else if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v') {
        ++i;
      } else if (c == ';') {
        while (i < text_.size() && text_[i] != '\n') ++i;
      } else if (c == '(') {
        if (static_cast<int>(stack.size()) > kMaxDepth) fail(line_, "lists nested too deeply");
        Node open;
        open.list = true;
        open.line = line_;
        stack.push_back(std::move(open));
        ++i;
      } else if (c == ')') {
        if (stack.size() == 1) fail(line_, "')' without a matching '('");
        Node done = std::move(stack.back());
        stack.pop_back();
        stack.back().children.push_back(std::move(done));
        ++i;
      } else if (c == '"') {
        const std::size_t end = text_.find('"', i + 1);
        const std::size_t eol = text_.find('\n', i + 1);
        if (end == std::string::npos || (eol != std::string::npos && eol < end))
          fail(line_, "unterminated quoted name");
        addAtom(stack.back(), text_.substr(i + 1, end - i - 1));
        i = end + 1;
      } else {
        const std::size_t start = i;
        // Not strchr: it finds a zero byte in any set, which would end the word before it began and never
        // move on. A zero byte is part of a word here.
        static constexpr std::string_view kEndOfWord(" \t\r\n\f\v();\"");
        while (i < text_.size() && kEndOfWord.find(text_[i]) == std::string_view::npos) ++i;
        addAtom(stack.back(), text_.substr(start, i - start));
      }
    }
    if (stack.size() > 1) fail(stack.back().line, "'(' is never closed");
    return std::move(stack[0].children);
  }

  void addAtom(Node& parent, std::string word) {
    Node atom;
    atom.atom = std::move(word);
    atom.line = line_;
    parent.children.push_back(std::move(atom));
  }

  // A list of the form (keyword word): its word.
  const std::string& singleWord(const Node& n, const char* what) const {
    if (n.children.size() != 2 || !n.children[1].isAtom())
      fail(n.line, std::string("(") + what + " <name>) expected");
    return n.children[1].atom;
  }

  void section(const Node& n, DtFedFile& out) {
    if (!n.list) fail(n.line, "unexpected '" + n.atom + "'");
    const std::string& word = head(n);
    if (sameWord(word, "Federation")) {
      out.federationName_ = singleWord(n, "Federation");
    } else if (sameWord(word, "FEDversion")) {
      singleWord(n, "FEDversion");
    } else if (sameWord(word, "spaces")) {
      for (std::size_t i = 1; i < n.children.size(); ++i) space(n.children[i]);
    } else if (sameWord(word, "objects")) {
      for (std::size_t i = 1; i < n.children.size(); ++i) objectClass(n.children[i]);
    } else if (sameWord(word, "interactions")) {
      for (std::size_t i = 1; i < n.children.size(); ++i) interactionClass(n.children[i], nullptr, out);
    } else {
      fail(n.line, "unknown section '" + (word.empty() ? std::string("(") : word) + "'");
    }
  }

  void space(const Node& n) const {
    if (!sameWord(head(n), "space") || n.children.size() < 2 || !n.children[1].isAtom())
      fail(n.line, "(space <name> (dimension <name>)...) expected");
    for (std::size_t i = 2; i < n.children.size(); ++i) {
      if (!sameWord(head(n.children[i]), "dimension"))
        fail(n.children[i].line, "(dimension <name>) expected");
      singleWord(n.children[i], "dimension");
    }
  }

  // The name, then the transport and order words, which an interaction class and an attribute share.
  void transportAndOrder(const Node& n, std::size_t at, const char* what) const {
    if (n.children.size() < at + 2 || !n.children[at].isAtom() || !n.children[at + 1].isAtom())
      fail(n.line, std::string(what) + " needs a transport and an order");
    if (!oneOf(n.children[at].atom, {"reliable", "best_effort"}))
      fail(n.children[at].line, "unknown transport '" + n.children[at].atom + "'");
    if (!oneOf(n.children[at + 1].atom, {"receive", "timestamp"}))
      fail(n.children[at + 1].line, "unknown order '" + n.children[at + 1].atom + "'");
  }

  // Number of leading atoms after the head: name, and for interactions transport, order and an optional
  // space.
  static std::size_t leadingAtoms(const Node& n) {
    std::size_t i = 1;
    while (i < n.children.size() && n.children[i].isAtom()) ++i;
    return i - 1;
  }

  void objectClass(const Node& n) const {
    if (!sameWord(head(n), "class") || n.children.size() < 2 || !n.children[1].isAtom())
      fail(n.line, "(class <name> ...) expected among the object classes");
    if (leadingAtoms(n) != 1)
      fail(n.line, "object class " + n.children[1].atom + " takes no words after its name");
    for (std::size_t i = 2; i < n.children.size(); ++i) {
      const Node& c = n.children[i];
      if (sameWord(head(c), "class")) {
        objectClass(c);
      } else if (sameWord(head(c), "attribute")) {
        if (c.children.size() < 2 || !c.children[1].isAtom()) fail(c.line, "(attribute <name> ...) expected");
        transportAndOrder(c, 2, ("attribute " + c.children[1].atom).c_str());
        if (leadingAtoms(c) > 4) fail(c.line, "attribute " + c.children[1].atom + " has too many words");
      } else {
        fail(c.line, "(attribute ...) or (class ...) expected in object class " + n.children[1].atom);
      }
    }
  }

  void interactionClass(const Node& n, const DtFedInteractionClass* parent, DtFedFile& out) const {
    if (!sameWord(head(n), "class") || n.children.size() < 2 || !n.children[1].isAtom())
      fail(n.line, "(class <name> <transport> <order> ...) expected among the interaction classes");
    DtFedInteractionClass cls;
    cls.name = n.children[1].atom;
    cls.fullName = parent ? parent->fullName + "." + cls.name : cls.name;
    cls.line = n.line;
    transportAndOrder(n, 2, ("interaction class " + cls.name).c_str());
    if (leadingAtoms(n) > 4) fail(n.line, "interaction class " + cls.name + " has too many words");
    cls.transport = n.children[2].atom;
    cls.order = n.children[3].atom;
    if (parent) cls.parameters = parent->parameters;
    for (std::size_t i = 2; i < n.children.size(); ++i) {
      const Node& c = n.children[i];
      if (!c.list || !sameWord(head(c), "parameter")) continue;
      const std::string& parameter = singleWord(c, "parameter");
      for (const std::string& known : cls.parameters)
        if (known == parameter)
          fail(c.line, "parameter " + parameter + " declared twice in class " + cls.name);
      cls.parameters.push_back(parameter);
    }
    if (out.findExact(cls.fullName)) fail(n.line, "interaction class " + cls.fullName + " declared twice");
    out.interactions_.push_back(cls);
    for (std::size_t i = 2; i < n.children.size(); ++i) {
      const Node& c = n.children[i];
      if (!c.list) continue;
      if (sameWord(head(c), "class")) {
        interactionClass(c, &cls, out);
      } else if (!sameWord(head(c), "parameter")) {
        fail(c.line, "(parameter ...) or (class ...) expected in interaction class " + cls.name);
      }
    }
  }

  const std::string& text_;
  const std::string& source_;
  int line_ = 1;
};

DtFedFile DtFedFile::read(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) DT_THROW("Cannot read FED file " + path + ": " + std::strerror(errno));
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) DT_THROW("Cannot read FED file " + path);
  return parse(text.str(), path);
}

DtFedFile DtFedFile::parse(const std::string& text, const std::string& source) {
  return Parser(text, source).run();
}

const DtFedInteractionClass* DtFedFile::findExact(const std::string& fullName) const {
  for (const DtFedInteractionClass& c : interactions_)
    if (c.fullName == fullName) return &c;
  return nullptr;
}

const DtFedInteractionClass* DtFedFile::findInteractionClass(const std::string& name) const {
  if (const DtFedInteractionClass* exact = findExact(name)) return exact;
  for (const DtFedInteractionClass& c : interactions_)
    if (c.name == name) return &c;
  return nullptr;
}
