#!/usr/bin/env python3
"""Writes the type stubs of the vistral package from the built module's own signatures and docstrings.

usage: PYTHONPATH=<dir holding the built vistral package> python/tools/make_stubs.py [OUT.pyi]   (standard output without OUT)

The stubs are committed beside the package; a test regenerates them and fails when they differ.
"""
import inspect
import re
import sys

import vistral
from vistral import _vistral

SIG = re.compile(r"^(?:\d+\. )?(\w+)\((.*)\) -> (.+)$")


def pytype(t):
    t = t.strip()
    t = re.sub(r"\bvistral\._vistral\.", "", t)
    t = t.replace("numpy.", "")
    return {"object": "typing.Any", "handle": "typing.Any", "args": "typing.Any", "kwargs": "typing.Any"}.get(t, t)


def params(text):
    """'self: X, a: int = 3, *, b: str = ''' -> stub parameter text."""
    out, depth, cur = [], 0, ""
    for ch in text:
        if ch in "([{":
            depth += 1
        elif ch in ")]}":
            depth -= 1
        if ch == "," and depth == 0:
            out.append(cur.strip())
            cur = ""
        else:
            cur += ch
    if cur.strip():
        out.append(cur.strip())
    res = []
    for p in out:
        if p in ("*", "/") or p.startswith("*"):
            res.append(p.split(":")[0])
            continue
        name, _, rest = p.partition(":")
        typ, eq, default = rest.partition("=")
        t = pytype(typ) if typ.strip() else ""
        if name.strip() == "self":
            res.append("self")
            continue
        if default.strip() == "None" and t != "typing.Any" and not t.startswith("typing.Optional"):
            t = "typing.Optional[%s]" % t
        res.append(name.strip() + (": " + t if t else "") + (" = ..." if eq else ""))
    return ", ".join(res)


def signatures(fn, name):
    doc = fn.__doc__ or ""
    sigs = []
    for line in doc.split("\n"):
        m = SIG.match(line.strip())
        if m and m.group(1) == name:
            sigs.append((params(m.group(2)), pytype(m.group(3))))
    return sigs


def docline(obj):
    doc = inspect.getdoc(obj) or ""
    lines = [l for l in doc.split("\n") if l and not SIG.match(l.strip()) and l.strip() != "Overloaded function."]
    text = " ".join(lines).split("Members:")[0].strip()  # pybind11's list of an enum's values
    return text.replace('"""', "'''").replace("\\", "\\\\")


def emit_function(out, indent, name, fn, static=False):
    sigs = signatures(fn, name) or [("*args: typing.Any, **kwargs: typing.Any", "typing.Any")]
    doc = docline(fn)
    for ps, ret in sigs:
        if len(sigs) > 1:
            out.append(indent + "@typing.overload")
        if static:
            out.append(indent + "@staticmethod")
        body = ' """%s"""' % doc if doc else " ..."
        out.append("%sdef %s(%s) -> %s:%s" % (indent, name, ps, ret, body))


def emit_class(out, name, cls):
    bases = [b.__name__ for b in cls.__bases__
             if b.__module__.startswith("vistral") or (b.__module__ == "builtins" and b is not object)]
    out.append("class %s(%s):" % (name, ", ".join(bases)))
    doc = docline(cls)
    if doc:
        out.append('    """%s"""' % doc)
    members = cls.__dict__
    is_enum = "__members__" in members
    for attr in sorted(members):
        value = members[attr]
        if attr.startswith("_") and attr not in ("__init__", "__bytes__", "__len__", "__enter__", "__exit__",
                                                  "__getitem__", "__contains__", "__eq__", "__ne__"):
            continue
        if inspect.isclass(value) and value.__module__.startswith("vistral"):
            nested = []
            emit_class(nested, attr, value)
            out.extend("    " + line if line else line for line in nested[:-1])
        elif is_enum and attr in cls.__members__:
            out.append("    %s: typing.ClassVar[%s]" % (attr, name))
        elif isinstance(value, property):
            ret = "typing.Any"
            if value.fget is not None:
                sig = signatures(value.fget, "") or []
                m = re.search(r"-> (.+)$", (value.fget.__doc__ or "").split("\n")[0])
                ret = pytype(m.group(1)) if m else "typing.Any"
            out.append("    @property")
            d = docline(value)
            out.append("    def %s(self) -> %s:%s" % (attr, ret, ' """%s"""' % d if d else " ..."))
            if value.fset is not None:
                first = (value.fset.__doc__ or "").split("\n")[0]
                m = re.match(r"^\(\w+: [^,]+, \w+: (.+)\) -> None$", first)
                out.append("    @%s.setter" % attr)
                out.append("    def %s(self, value: %s) -> None: ..." % (attr, pytype(m.group(1)) if m else "typing.Any"))
        elif isinstance(value, staticmethod):
            emit_function(out, "    ", attr, value.__func__, static=True)
        elif callable(value) and type(value).__name__ in ("instancemethod", "builtin_function_or_method"):
            emit_function(out, "    ", attr, value)
        elif attr.isidentifier() and not callable(value) and not isinstance(value, property):
            out.append("    %s: typing.ClassVar[%s]" % (attr, type(value).__name__ if type(
                value).__module__ == "builtins" else type(value).__name__))
    if is_enum:
        out.append("    def __int__(self) -> int: ...")
        out.append("    def __index__(self) -> int: ...")
        out.append("    @property")
        out.append("    def name(self) -> str: ...")
        out.append("    @property")
        out.append("    def value(self) -> int: ...")
    if len(out) and out[-1].startswith("class "):
        out.append("    ...")
    out.append("")


def main():
    out = ['"""%s"""' % (vistral.__doc__ or "").strip().split("\n")[0], "", "import typing", ""]
    classes = []
    seen = set()

    def visit(cls):
        if cls in seen or not cls.__module__.startswith("vistral"):
            return
        for b in cls.__bases__:
            visit(b)
        seen.add(cls)
        classes.append(cls)

    for name in sorted(dir(_vistral)):
        value = getattr(_vistral, name)
        if inspect.isclass(value):
            visit(value)
    for cls in classes:
        emit_class(out, cls.__name__, cls)
        # Nested enumerations live on the class; pybind11 also makes them class attributes.
    for name in sorted(dir(_vistral)):
        value = getattr(_vistral, name)
        if name.startswith("__") or inspect.isclass(value):
            continue
        if callable(value):
            emit_function(out, "", name, value)
        else:
            out.append("%s: %s" % (name, type(value).__name__ if type(value).__module__ == "builtins"
                                   else type(value).__name__))
    out.append("")
    out.append("Controller = RemoteController")
    out.append("Drawer = RemoteDrawer")
    text = "\n".join(out) + "\n"
    if len(sys.argv) > 1:
        with open(sys.argv[1], "w", encoding="utf-8") as f:
            f.write(text)
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
