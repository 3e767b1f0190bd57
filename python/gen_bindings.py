#!/usr/bin/env python3
"""Writes the pybind11 members of the vistral module from the library's public headers.

Every public class of the control library becomes a Python class whose getter/setter pairs are properties and
whose other operations are methods, each with the comment above its declaration as its docstring. Types the
module cannot carry are left out and listed with --report. Conversions live in convert.h; this script only
names them.

usage: gen_bindings.py INCLUDE_DIR OUT_CPP [--report]
"""
import os
import re
import sys

# Classes bound as Python classes, by header; hand-written code adds the connection, the controller, the drawer
# and the emulator around them.
VALUE_CLASSES = {"DtVdcColor", "DtVdcVector2D", "DtVdc3DAttachPoint", "DtVdcLineSegment", "DtVdcAttributeValue"}
# Members that the hand-written code binds in its own idiom, or that make no sense from Python.
SKIP = {"string", "setFromString", "printData", "printDataToStream", "print", "internalGetPduKind", "typeString",
        "isNumber", "textBuffer", "formatText", "packet", "length", "attributeValueMap", "copyAttributes",
        "operator", "toHSV", "fromHSV", "processVistralControl", "processVistralControlCb", "send",
        "setCustomSender", "addViewModeChangeCallback", "removeViewModeChangeCallback", "sendGroupPdu",
        "attributeGroupTemplate", "attributeTemplateMap", "createAttributes", "destroyAttributes"}
SCALARS = {"bool", "int", "unsigned int", "unsigned", "unsigned char", "unsigned short", "short", "long",
           "unsigned long", "float", "double", "char", "DtNetU32", "DtNetU16", "DtNetInt32", "DtNetFloat32",
           "DtNetFloat64", "int32_t", "uint32_t", "uint16_t", "uint8_t", "std::uint32_t", "std::uint16_t",
           "std::uint8_t", "std::int32_t"}
VALUES = {"DtString", "DtVector64", "DtTaitBryan", "DtGlobalObjectDesignatorList", "std::string",
          "std::vector<DtVector64>"}

DECL = re.compile(r"^(?P<specifiers>(?:(?:virtual|static|explicit|inline|constexpr|VISTRAL_EXPORT)\s+)*)"
                  r"(?P<ret>[\w:<>,\s\*&]+?[\s\*&])?(?P<name>~?\w+)\s*\((?P<params>[^()]*)\)\s*"
                  r"(?P<const>const)?\s*(?:noexcept)?\s*(?P<virt>override|final)?\s*(?P<pure>=\s*0|=\s*default|"
                  r"=\s*delete)?\s*(?:;|\{|:)")


def snake(name):
    s = re.sub(r"([a-z0-9])([A-Z])", r"\1_\2", name)
    s = re.sub(r"([A-Z]+)([A-Z][a-z])", r"\1_\2", s)
    s = re.sub(r"(\d)_([A-Z])(?![a-z])", r"\1\2", s)
    return s.lower()


def norm(t):
    return re.sub(r"\s+", " ", t.replace("&", " & ").replace("*", " * ")).strip()


class Cls:
    def __init__(self, name, base, header, doc):
        self.name, self.base, self.header, self.doc = name, base, header, doc
        self.enums = []    # (name, underlying, [(enumerator, doc)], doc)
        self.methods = []  # dicts
        self.ctors = []
        self.aliases = {}  # using X = Y
        self.abstract = False


# Headers whose top-level enums the module carries.
GLOBAL_ENUM_HEADERS = ("dtViewerCommand.h", "dtViewerOptions.h", "optionsPdu.h", "vistralDrawControlPdu.h",
                       "dtExerciseConn.h")


def enum_entries(body):
    entries = []
    edoc = ""
    for part in body.split("}")[0].split("\n"):
        ps = part.strip()
        if ps.startswith("//"):
            edoc = ps[2:].strip()
            continue
        tm = re.search(r"//\s*(.*)$", ps)
        for item in re.sub(r"//.*", "", ps).split(","):
            item = item.strip()
            if item:
                entries.append((item.split("=")[0].strip(), tm.group(1) if tm else edoc))
    return entries


def parse(path, classes):
    lines = open(path, encoding="utf-8").read().split("\n")
    header = os.path.basename(path)
    stack = []  # classes open
    access = None
    comment = []
    after_decl = False
    file_doc = None
    file_classes = []
    i = 0
    while i < len(lines):
        raw = lines[i]
        line = raw.strip()
        i += 1
        if not line:
            if file_doc is None:
                file_doc = " ".join(comment)
            comment = []
            continue
        if line.startswith("//"):
            text = line[2:].strip()
            if text.startswith("NOLINT"):
                continue
            if after_decl:  # a comment after declarations heads the next group
                comment = []
            after_decl = False
            comment.append(text)
            continue
        after_decl = True
        if line.startswith("#"):
            continue
        m = re.match(r"^(class|struct)\s+(?:VISTRAL_EXPORT\s+)?(\w+)\s*(?::\s*public\s+(\w+))?\s*\{", line)
        if m and not raw.startswith("   "):
            if raw.startswith("  "):  # a nested type: skipped to its end
                depth = line.count("{") - line.count("}")
                while depth > 0 and i < len(lines):
                    depth += lines[i].count("{") - lines[i].count("}")
                    i += 1
                comment = []
                continue
            # A class without a comment of its own is the one the header's opening comment describes.
            c = Cls(m.group(2), m.group(3), header, " ".join(comment) or (file_doc if not file_classes else ""))
            file_classes.append(c.name)
            classes[c.name] = c
            stack = [c]
            access = "public" if m.group(1) == "struct" else "private"
            comment = []
            continue
        if not stack:
            em = re.match(r"^enum\s+(\w+)\s*(?::\s*([\w\s]+))?\{(.*)$", line)
            if em and path.endswith(GLOBAL_ENUM_HEADERS):
                body = em.group(3)
                while "}" not in body and i < len(lines):
                    body += "\n" + lines[i]
                    i += 1
                classes.setdefault("", Cls("", None, header, "")).enums.append(
                    (em.group(1), (em.group(2) or "int").strip(), enum_entries(body), " ".join(comment)))
            comment = []
            continue
        c = stack[0]
        if line == "};" and not raw.startswith(" "):
            stack = []
            continue
        if re.match(r"^(public|protected|private):$", line):
            access = line[:-1]
            comment = []
            continue
        if not raw.startswith("  ") or raw.startswith("   "):
            continue
        # A whole declaration: join lines until it ends.
        decl = line
        while not re.search(r"[;{]\s*(//.*)?$", decl) and i < len(lines):
            decl += " " + lines[i].strip()
            i += 1
        trailing = ""
        tm = re.search(r"//\s*(.*)$", decl)
        if tm:
            trailing = re.sub(r"^NOLINT\S*:?\s*", "", tm.group(1))
            if trailing == "implicit by design":
                trailing = ""
            decl = decl[:tm.start()].strip()
        if "= 0;" in decl and ")" in decl:
            c.abstract = True
        em = re.match(r"^enum\s+(\w+)\s*(?::\s*([\w\s]+))?\{(.*)$", decl)
        if em:
            body = em.group(3)
            while "}" not in body and i < len(lines):
                body += "\n" + lines[i]
                i += 1
            entries = enum_entries(body)
            if access == "public":
                c.enums.append((em.group(1), (em.group(2) or "int").strip(), entries, " ".join(comment)))
            comment = []
            continue
        um = re.match(r"^using\s+(\w+)\s*=\s*([\w:]+)::(\w+);", decl)
        if um and access == "public":
            c.aliases[um.group(1)] = um.group(2) + "::" + um.group(3)
        doc = trailing or " ".join(comment)
        if access != "public":
            continue
        dm = DECL.match(decl)
        if not dm or decl.startswith("using") or decl.startswith("friend"):
            continue
        name = dm.group("name")
        params = [p.strip() for p in dm.group("params").split(",")] if dm.group("params").strip() else []
        parsed = []
        for p in params:
            default = None
            if "=" in p:
                p, default = [x.strip() for x in p.split("=", 1)]
            pm = re.match(r"^(.*?[\s\*&])(\w+)$", p)
            if pm:
                parsed.append((norm(pm.group(1)), pm.group(2), default))
            else:
                parsed.append((norm(p), "arg%d" % len(parsed), default))
        entry = {"name": name, "ret": norm(dm.group("ret") or ""), "params": parsed,
                 "const": bool(dm.group("const")), "static": "static" in dm.group("specifiers"),
                 "deleted": (dm.group("pure") or "").replace(" ", "") in ("=delete",), "doc": doc}
        if name == c.name:
            if not entry["deleted"]:
                c.ctors.append(entry)
        elif not name.startswith("~"):
            c.methods.append(entry)


def main():
    include, out = sys.argv[1], sys.argv[2]
    report = "--report" in sys.argv
    classes = {}
    for sub in ("tarvex", "vistralcontrol"):
        d = os.path.join(include, sub)
        for f in sorted(os.listdir(d)):
            if f.endswith(".h"):
                parse(os.path.join(d, f), classes)

    def lineage(c):
        out = []
        while c is not None:
            out.append(c.name)
            c = classes.get(c.base)
        return out

    pdus = [c for c in classes.values() if "DtVistralControlPdu" in lineage(c)]
    objects = [c for c in classes.values() if "DtVdcObject" in lineage(c)]
    values = [classes[n] for n in sorted(VALUE_CLASSES)]
    controller = classes["DtVistralRemoteController"]
    bound = {c.name for c in pdus + objects + values}

    enums = {}  # qualified C++ name -> Python spelling
    for c in pdus + objects + values + [controller]:
        for e in c.enums:
            enums[c.name + "::" + e[0]] = c
    # Nested names a class uses unqualified: its own enums, its bases' and its aliases.
    def qualify(t, c):
        base = t.replace("const ", "").replace("&", "").replace("*", "").strip()
        k = c
        while k is not None:
            if base in k.aliases:
                return t.replace(base, k.aliases[base]), k.aliases[base]
            for e in k.enums:
                if e[0] == base:
                    q = k.name + "::" + base
                    return t.replace(base, q), q
            k = classes.get(k.base)
        if base == "Direction":
            return t.replace(base, "DtVistralRemoteController::Direction"), "DtVistralRemoteController::Direction"
        return t, base

    global_enums = {e[0] for e in classes[""].enums}

    def kind(t, c, ret=False):
        """How a (qualified) type travels: None when it cannot."""
        qt, base = qualify(t, c)
        ptr = "*" in qt
        ref = "&" in qt
        const = qt.startswith("const ")
        if base in ("void",) and not ptr:
            return qt, "void"
        if base in SCALARS or base in VALUES or base in enums or base in global_enums or base in (
                "DtVdcLineSegment::DtVdcSegmentStyle", "DtVdcLineSegment::DtVdcSegmentArrowStyle") or \
                base.endswith("::Direction"):
            if ptr and base == "unsigned char":
                return qt, "rgba"
            if ptr and base == "char" and const:
                return qt, "cstr"
            if ptr:
                return (qt, "opt") if const and not ret else (None, None)
            if ref and not const:
                return (None, None)
            return qt, "value"
        if base in bound:
            if ptr:
                return qt, "objptr"
            if ref and not const:
                return (qt, "ref") if ret else (None, None)
            return qt, "value"
        return None, None

    skipped = []
    emitted = []

    def usable(c, m):
        """Fills in how the member's types travel; False when one cannot."""
        if "_ok" not in m:
            rt, rk = kind(m["ret"], c, ret=True) if m["ret"] else ("void", "void")
            args = [kind(p[0], c) for p in m["params"]]
            m["_ok"] = rt is not None and all(a[0] is not None for a in args)
            if m["_ok"]:
                m["_rt"], m["_rk"], m["_args"] = rt, rk, args
            else:
                skipped.append("%s::%s(%s) -> %s" % (c.name, m["name"], ", ".join(p[0] for p in m["params"]),
                                                     m["ret"]))
        return m["_ok"]

    def members(c):
        """The bindable members of the class, one per signature (the const one of a const/non-const pair)."""
        seen = {}
        for m in c.methods:
            if m["name"] in SKIP or m["static"] or m["deleted"]:
                continue
            key = (m["name"], tuple(p[0] for p in m["params"]))
            if key in seen and (seen[key]["const"] or not m["const"]):
                continue
            seen[key] = m
        return [m for m in seen.values() if usable(c, m)]

    def is_getter(m):
        return not m["params"] and m["ret"] != "void" and not re.match(r"set[A-Z]", m["name"])

    def chain(c):
        while c is not None:
            yield c
            c = classes.get(c.base)

    def props(c):
        return {m["name"] for k in chain(c) for m in members(k) if is_getter(m)}

    def find_setter(c, name):
        sname = "set" + name[0].upper() + name[1:]
        for k in chain(c):
            for m in members(k):
                if m["name"] == sname and len(m["params"]) == 1:
                    return k, m
        return None, None

    def emit_methods(c, var):
        ps = props(c)
        for m in members(c):
            name = m["name"]
            if is_getter(m):
                k, setter = find_setter(c, name)
                emitted.append(emit_property(c, var, m, setter, k))
                continue
            sm = re.match(r"set([A-Z]\w*)", name)
            field = sm.group(1)[0].lower() + sm.group(1)[1:] if sm else None
            if field in ps and len(m["params"]) == 1:
                # The property's setter; a property of a base calls it as a virtual.
                if field not in {g["name"] for g in members(c) if is_getter(g)}:
                    continue
                continue
            pyname = snake(name)
            if (name in ps or field in ps) and m["params"]:
                pyname += "_at"
            emitted.append(emit_call(c, var, m, pyname))

    def ret_type(m):
        """The lambda's result type, which names the Python type in signatures."""
        rk, rt = m["_rk"], m["_rt"]
        if rk == "void":
            return "py::none"
        return "vpy::Ret<%s>" % decay(rt).replace("*", "").strip() if rk in ("ref", "objptr") else \
            "vpy::Ret<%s>" % decay(rt)

    def cast_ret(m, call):
        rk, rt = m["_rk"], m["_rt"]
        if rk == "void":
            return "%s; return py::none();" % call
        if rk == "ref":
            return "return py::cast(&(%s), py::return_value_policy::reference_internal, self_obj);" % call
        if rk == "objptr":
            return "return py::cast(%s, py::return_value_policy::reference_internal, self_obj);" % call
        return "return vpy::Out<%s>::out(%s);" % (decay(rt), call)

    def decay(t):
        return t.replace("const ", "").replace("&", "").strip()

    def arg_expr(a, i):
        qt, k = a
        if k == "opt":
            return "(o%d ? &*o%d : nullptr)" % (i, i)
        if k == "objptr":
            return "a%d" % i
        if k == "cstr":
            return "vpy::Arg<const char*>::in(a%d, n%d)" % (i, i)
        return "vpy::Arg<%s>::in(a%d, n%d)" % (decay(qt).replace("*", "").strip() if k != "rgba" else
                                               "unsigned char*", i, i)

    def param_decl(a, i):
        qt, k = a
        if k == "opt":
            return "const vpy::In<std::optional<%s>>& a%d" % (decay(qt).replace("*", "").strip(), i)
        if k == "objptr":
            return "%s a%d" % (qt.replace("const ", ""), i)
        if k == "rgba":
            return "const vpy::In<unsigned char*>& a%d" % i
        if k == "cstr":
            return "vpy::Py<const char*> a%d" % i
        return "vpy::Py<%s> a%d" % (decay(qt), i)

    def pre(m):
        out = []
        for i, (a, p) in enumerate(zip(m["_args"], m["params"])):
            if a[1] == "objptr":  # passed as it is, never checked
                continue
            out.append('static constexpr const char* n%d = "%s";' % (i, snake(p[1])))
            if a[1] == "opt":
                base = decay(a[0]).replace("*", "").strip()
                out.append("auto o%d = vpy::Opt<%s>::in(a%d, n%d);" % (i, base, i, i))
        return " ".join(out)

    def pyargs(m):
        out = []
        for a, p in zip(m["_args"], m["params"]):
            if a[1] == "opt":
                out.append('py::arg("%s") = py::none()' % snake(p[1]))
            elif a[1] == "objptr":
                out.append('py::arg("%s").none(true)' % snake(p[1]))
            else:
                out.append('py::arg("%s")' % snake(p[1]))
        return "".join(", " + x for x in out)

    def cstr(s):
        return '"' + s.replace("\\", "\\\\").replace('"', '\\"') + '"'

    # Classes reached through a hand-written wrapper: the parameter, how it yields the object, what follows.
    WRAPPED = {"DtVistralRemoteController": ("vpy::Controller& w", "auto& self = w.get();",
                                             "vpy::raisePending();")}

    def selfparts(c):
        return WRAPPED.get(c.name, ("%s& self" % c.name, "", ""))

    def emit_call(c, var, m, pyname):
        sdecl, sget, after = selfparts(c)
        params = ", ".join([sdecl] + [param_decl(a, i) for i, a in enumerate(m["_args"])])
        call = "self.%s(%s)" % (m["name"], ", ".join(arg_expr(a, i) for i, a in enumerate(m["_args"])))
        body = cast_ret(m, call)
        if after and body.endswith("return py::none();"):
            body = body[:-len("return py::none();")] + after + " return py::none();"
        body = sget + " " + body
        if "self_obj" in body:
            body = "py::object self_obj = py::cast(&self, py::return_value_policy::reference); " + body
        return '  %s.def("%s", [](%s) -> %s { %s %s }%s, %s);' % (
            var, pyname, params, ret_type(m), pre(m), body, pyargs(m), cstr(m["doc"]))

    def emit_property(c, var, g, s, owner=None):
        gcall = "self.%s()" % g["name"]
        gbody = cast_ret(g, gcall)
        if "self_obj" in gbody:
            gbody = "py::object self_obj = py::cast(&self, py::return_value_policy::reference); " + gbody
        sdecl, sget, after = selfparts(c)
        getter = "[](%s) -> %s { %s %s }" % (sdecl, ret_type(g), sget, gbody)
        doc = g["doc"] or (s["doc"] if s else "")
        if s is None:
            return '  %s.def_property_readonly("%s", %s, %s);' % (var, snake(g["name"]), getter, cstr(doc))
        target = "self" if owner is None or owner is c else "static_cast<%s&>(self)" % owner.name
        setter = "[](%s, %s) { %s %s %s.%s(%s); %s }" % (sdecl, param_decl(s["_args"][0], 0), sget, pre(s), target,
                                                        s["name"], arg_expr(s["_args"][0], 0), after)
        return '  %s.def_property("%s", %s, %s, %s);' % (var, snake(g["name"]), getter, setter, cstr(doc))

    def emit_enums(c, var):
        for ename, under, entries, edoc in c.enums:
            q = c.name + "::" + ename
            v = "e_" + c.name + "_" + ename
            emitted.append('  py::enum_<%s> %s(%s, "%s", py::arithmetic(), %s);' % (q, v, var, ename[2:] if
                           ename.startswith("Dt") else ename, cstr(edoc)))
            for en, d in entries:
                emitted.append('  %s.value("%s", %s::%s, %s);' % (v, en, c.name, en, cstr(d)))
            emitted.append("  %s.export_values();" % v)

    def emit_ctors(c, var):
        if c.abstract:
            return
        # Overloads whose parameters take any object (sequences, enums) come last, so that pybind11 tries the
        # ones it can tell apart by type first.
        loose = ("DtVector64", "DtTaitBryan", "std::vector", "DtGlobalObjectDesignatorList")
        for k in sorted(c.ctors, key=lambda k: sum(any(x in p[0] for x in loose) for p in k["params"])):
            ps = k["params"]
            if any(p[0] in ("DtBufferPlaceHolder *", "const DtNetViewControlPdu *") for p in ps):
                if all(p[2] is not None for p in ps):
                    emitted.append("  %s.def(py::init([]() { return vpy::make<%s>(); }), %s);" % (
                        var, c.name, cstr(k["doc"] or c.doc)))
                continue
            if len(ps) == 1 and c.name in ps[0][0]:
                continue
            if any(p[2] is not None for p in ps):
                pass
            args = [kind(p[0], c) for p in ps]
            if any(a[0] is None for a in args):
                skipped.append("%s(%s)" % (c.name, ", ".join(p[0] for p in ps)))
                continue
            k["_args"] = args
            if not ps:
                emitted.append("  %s.def(py::init([]() { return vpy::make<%s>(); }), %s);" % (
                    var, c.name, cstr(k["doc"] or c.doc)))
                continue
            params = ", ".join(param_decl(a, i) for i, a in enumerate(args))
            call = "vpy::make<%s>(%s)" % (c.name, ", ".join(arg_expr(a, i) for i, a in enumerate(args)))
            keep = "".join(", py::keep_alive<1, %d>()" % (i + 2) for i, a in enumerate(args) if a[1] == "objptr")
            emitted.append("  %s.def(py::init([](%s) { %s return %s; })%s%s, %s);" % (
                var, params, pre(k), call, pyargs(k), keep, cstr(k["doc"] or c.doc)))

    def order(cs):
        done, out = set(), []

        def visit(c):
            if c.name in done:
                return
            if c.base in {x.name for x in cs}:
                visit(classes[c.base])
            done.add(c.name)
            out.append(c)
        for c in sorted(cs, key=lambda c: c.name):
            visit(c)
        return out

    emitted.append("void bindGenerated(py::module_& m, py::class_<DtVistralControlPdu>& pduBase) {")
    for ename, under, entries, edoc in classes[""].enums:
        v = "e_" + ename
        emitted.append('  py::enum_<%s> %s(m, "%s", py::arithmetic(), %s);' % (ename, v, ename[2:], cstr(edoc)))
        for en, d in entries:
            emitted.append('  %s.value("%s", %s, %s);' % (v, en, en, cstr(d)))
        emitted.append("  %s.export_values();" % v)
    for c in order(values):
        var = "c_" + c.name
        emitted.append('  py::class_<%s> %s(m, "%s", %s);' % (c.name, var, c.name[2:], cstr(c.doc)))
        emit_enums(c, var)
    for c in order(objects):
        var = "c_" + c.name
        base = (", " + c.base) if c.base in bound else ""
        emitted.append('  py::class_<%s%s, std::shared_ptr<%s>> %s(m, "%s", %s);' % (
            c.name, base, c.name, var, c.name[2:], cstr(c.doc)))
        emit_enums(c, var)
    for c in order(pdus):
        var = "c_" + c.name
        if c.name == "DtVistralControlPdu":
            emitted.append("  auto& %s = pduBase;" % var)
        else:
            emitted.append('  py::class_<%s, %s> %s(m, "%s", %s);' % (c.name, c.base, var, c.name[2:],
                                                                      cstr(c.doc)))
        emit_enums(c, var)
    # Members after every class and enum exists, so that signatures name Python types.
    for c in order(values) + order(objects) + order(pdus):
        var = "c_" + c.name
        emitted.append("  {")
        emitted.append("    auto& cls = %s;" % var)
        emitted.append("    (void)cls;")
        emit_ctors(c, "cls")
        emit_methods(c, "cls")
        emitted.append("  }")
    emitted.append("}")
    emitted.append("")
    emitted.append("void bindControllerMembers(py::class_<vpy::Controller>& cls) {")
    emit_enums(controller, "cls")
    emit_methods(controller, "cls")
    emitted.append("}")

    with open(out, "w", encoding="utf-8") as f:
        f.write("// Written by gen_bindings.py from the public headers; edit the script, not this file.\n")
        f.write('#include "convert.h"\n#include "wrappers.h"\n\n')
        for c in sorted({c.header for c in pdus + objects + values + [controller]}):
            f.write('#include "vistralcontrol/%s"\n' % c)
        f.write('#include "tarvex/dtExerciseConn.h"\n#include "tarvex/dtViewerCommand.h"\n'
                '#include "tarvex/dtViewerOptions.h"\n')
        f.write("\nnamespace py = pybind11;\n\n")
        f.write("\n".join(emitted) + "\n")
    if report:
        for s in skipped:
            print("skipped:", s)
        print("%d members written, %d skipped" % (len(emitted), len(skipped)))


if __name__ == "__main__":
    main()
