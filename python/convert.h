// How values cross between Python and the library: the argument and result conversions that the generated
// bindings name. Each argument conversion checks what C++ would silently truncate or wrap, and raises
// TypeError for a value of the wrong kind and ValueError for one out of the field's range, naming the
// parameter.
#pragma once

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include "tarvex/dtGlobalObjectDesignatorList.h"
#include "tarvex/dtNetTypes.h"
#include "tarvex/dtString.h"
#include "tarvex/dtVector.h"
#include "vistralcontrol/vdcObject.h"

namespace vpy {
namespace py = pybind11;

// vistral.ArgumentTypeError and vistral.ArgumentValueError: a TypeError or ValueError that is also a
// vistral.Error.
[[noreturn]] void raiseTypeError(const std::string& message);
[[noreturn]] void raiseValueError(const std::string& message);

[[noreturn]] inline void typeError(const char* name, const char* expected, py::handle got) {
  raiseTypeError(std::string(name) + " must be " + expected + ", not " +
                 std::string(py::str(py::type::handle_of(got).attr("__name__"))));
}

// Integers of any width: Python's int, checked against the C++ type's range.
template <class T>
T checkedInt(const py::int_& value, const char* name) {
  int overflow = 0;
  const long long v = PyLong_AsLongLongAndOverflow(value.ptr(), &overflow);
  using L = std::numeric_limits<T>;
  if (overflow != 0 || v < static_cast<long long>(L::min()) ||
      (v > 0 && static_cast<unsigned long long>(v) > static_cast<unsigned long long>(L::max())))
    raiseValueError(std::string(name) + " must be in " + std::to_string(static_cast<long long>(L::min())) +
                    ".." + std::to_string(static_cast<unsigned long long>(L::max())) + ", got " +
                    std::string(py::str(static_cast<const py::handle&>(value))));
  return static_cast<T>(v);
}

inline std::array<double, 3> triple(const py::handle& value, const char* name, const char* form) {
  if (!py::isinstance<py::sequence>(value) || py::isinstance<py::str>(value) || py::len(value) != 3)
    typeError(name, form, value);
  std::array<double, 3> out{};
  py::sequence seq = py::reinterpret_borrow<py::sequence>(value);
  for (int i = 0; i < 3; ++i) {
    py::object item = seq[static_cast<std::size_t>(i)];
    if (!PyFloat_Check(item.ptr()) && !PyLong_Check(item.ptr())) typeError(name, form, value);
    out[static_cast<std::size_t>(i)] = item.cast<double>();
  }
  return out;
}

// How each value type is spelled in signatures, docstrings and stubs.
template <class T, class Enable = void>
struct PyName {  // a bound class or enumeration: its Python class
  static constexpr auto name = py::detail::make_caster<T>::name;
};
#define VPY_NAME(T, text)                                      \
  template <>                                                  \
  struct PyName<T> {                                           \
    static constexpr auto name = py::detail::const_name(text); \
  }
VPY_NAME(DtString, "str");
VPY_NAME(bool, "bool");
VPY_NAME(float, "float");
VPY_NAME(double, "float");
VPY_NAME(DtVector64, "tuple[float, float, float]");
VPY_NAME(DtTaitBryan, "tuple[float, float, float]");
VPY_NAME(std::vector<DtVector64>, "list[tuple[float, float, float]]");
VPY_NAME(DtGlobalObjectDesignatorList, "list[str]");
VPY_NAME(unsigned char*, "tuple[int, int, int, int]");
#undef VPY_NAME
template <class T>
struct PyName<T, std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>>> {
  static constexpr auto name = py::detail::const_name("int");
};
template <>
struct PyName<DtNetU32> : PyName<unsigned int> {};
template <class T>
struct PyName<std::optional<T>> {
  static constexpr auto name =
      py::detail::const_name("typing.Optional[") + PyName<T>::name + py::detail::const_name("]");
};

// A parameter taken as any object (checked by Arg) but named for its type, and a result so named.
template <class T>
struct In {
  py::object object;
  operator const py::object&() const { return object; }  // NOLINT: implicit by design
};
template <class T>
struct Ret {
  Ret() = default;
  Ret(py::object o) : object(std::move(o)) {}  // NOLINT: implicit by design
  py::object object;
};

}  // namespace vpy

namespace pybind11::detail {
template <class T>
struct type_caster<vpy::In<T>> {
  PYBIND11_TYPE_CASTER(vpy::In<T>, vpy::PyName<T>::name);
  bool load(handle src, bool) {
    value.object = reinterpret_borrow<object>(src);
    return true;
  }
  static handle cast(const vpy::In<T>& src, return_value_policy, handle) { return src.object.inc_ref(); }
};
template <class T>
struct type_caster<vpy::Ret<T>> {
  PYBIND11_TYPE_CASTER(vpy::Ret<T>, vpy::PyName<T>::name);
  bool load(handle, bool) { return false; }
  static handle cast(const vpy::Ret<T>& src, return_value_policy, handle) { return src.object.inc_ref(); }
};
}  // namespace pybind11::detail

namespace vpy {

// Arg<T>: Py is the Python-side parameter type, in() makes the C++ argument.
template <class T, class Enable = void>
struct Arg {  // a bound class, taken as it is
  using Py = const T&;
  static const T& in(const T& v, const char*) { return v; }
};
template <class T>
struct Arg<T, std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>>> {
  using Py = const py::int_&;
  static T in(const py::int_& v, const char* name) { return checkedInt<T>(v, name); }
};
template <>
struct Arg<bool> {
  using Py = bool;
  static bool in(bool v, const char*) { return v; }
};
template <>
struct Arg<double> {
  using Py = double;
  static double in(double v, const char*) { return v; }
};
template <>
struct Arg<float> {
  using Py = double;
  static float in(double v, const char* name) {
    if (std::isfinite(v) && std::fabs(v) > static_cast<double>(std::numeric_limits<float>::max()))
      raiseValueError(std::string(name) + " does not fit a 32-bit float: " + std::to_string(v));
    return static_cast<float>(v);
  }
};
template <>
struct Arg<DtNetU32> : Arg<unsigned int> {};
template <>
struct Arg<DtString> {
  using Py = const std::string&;
  static DtString in(const std::string& v, const char*) { return DtString(v); }
};
template <>
struct Arg<const char*> {
  using Py = const std::string&;
  static const char* in(const std::string& v, const char*) { return v.c_str(); }
};
template <>
struct Arg<DtVector64> {
  using Py = const In<DtVector64>&;
  static DtVector64 in(const py::object& v, const char* name) {
    const auto t = triple(v, name, "a sequence of 3 numbers (x, y, z)");
    return DtVector64(t[0], t[1], t[2]);
  }
};
template <>
struct Arg<DtTaitBryan> {
  using Py = const In<DtTaitBryan>&;
  static DtTaitBryan in(const py::object& v, const char* name) {
    const auto t = triple(v, name, "a sequence of 3 numbers (psi, theta, phi)");
    return DtTaitBryan(t[0], t[1], t[2]);
  }
};
template <>
struct Arg<std::vector<DtVector64>> {
  using Py = const In<std::vector<DtVector64>>&;
  static std::vector<DtVector64> in(const py::object& v, const char* name) {
    if (!py::isinstance<py::sequence>(v) || py::isinstance<py::str>(v))
      typeError(name, "a sequence of (x, y, z) points", v);
    std::vector<DtVector64> out;
    for (py::handle item : v)
      out.push_back(Arg<DtVector64>::in(py::reinterpret_borrow<py::object>(item), name));
    return out;
  }
};
template <>
struct Arg<DtGlobalObjectDesignatorList> {
  using Py = const In<DtGlobalObjectDesignatorList>&;
  static DtGlobalObjectDesignatorList in(const py::object& v, const char* name) {
    if (!py::isinstance<py::sequence>(v) || py::isinstance<py::str>(v))
      typeError(name, "a sequence of entity names (str)", v);
    DtGlobalObjectDesignatorList out;
    for (py::handle item : v) {
      if (!py::isinstance<py::str>(item)) typeError(name, "a sequence of entity names (str)", v);
      out.add(DtString(item.cast<std::string>()));
    }
    return out;
  }
};
// Enumerations: the enum's own Python values, or a plain int in the range of its underlying type.
template <class T>
struct Arg<T, std::enable_if_t<std::is_enum_v<T>>> {
  using Py = const In<T>&;
  static T in(const py::object& v, const char* name) {
    if (py::isinstance<T>(v)) return v.cast<T>();
    // Another enumeration's value passes as its number: command numbers and draw-object types share a field.
    if (!PyBool_Check(v.ptr()) && PyIndex_Check(v.ptr())) {
      py::int_ number = py::reinterpret_steal<py::int_>(PyNumber_Index(v.ptr()));
      if (!number) throw py::error_already_set();
      return static_cast<T>(checkedInt<std::underlying_type_t<T>>(number, name));
    }
    typeError(name, "an int or one of the enum's values", v);
  }
};
// An RGBA colour as four bytes, alive for the call it is passed to.
struct Rgba {
  std::array<unsigned char, 4> bytes{};
  operator unsigned char*() { return bytes.data(); }  // NOLINT: implicit by design
};
template <>
struct Arg<unsigned char*> {
  static Rgba in(const py::object& v, const char* name) {
    const char* form = "a sequence of 4 ints (red, green, blue, alpha)";
    if (!py::isinstance<py::sequence>(v) || py::isinstance<py::str>(v) || py::len(v) != 4)
      typeError(name, form, v);
    Rgba out;
    std::size_t i = 0;
    for (py::handle item : v) {
      if (!PyLong_Check(item.ptr())) typeError(name, form, v);
      out.bytes[i++] = checkedInt<unsigned char>(py::reinterpret_borrow<py::int_>(item), name);
    }
    return out;
  }
};
template <class T>
using Py = typename Arg<T>::Py;

// Optional arguments: None leaves the field out.
template <class T>
struct Opt {
  static std::optional<T> in(const py::object& v, const char* name) {
    if (v.is_none()) return std::nullopt;
    // The common cases without pybind11's general conversion: a float or int for a number, a str for text.
    if constexpr (std::is_floating_point_v<T>) {
      if (PyFloat_CheckExact(v.ptr())) return Arg<T>::in(PyFloat_AS_DOUBLE(v.ptr()), name);
    }
    if constexpr (std::is_same_v<T, DtString>) {
      if (PyUnicode_Check(v.ptr())) {
        Py_ssize_t size = 0;
        const char* text = PyUnicode_AsUTF8AndSize(v.ptr(), &size);
        if (text == nullptr) throw py::error_already_set();
        return DtString(text, static_cast<std::size_t>(size));
      }
    }
    if constexpr (std::is_same_v<Py<T>, const py::object&>) {
      return Arg<T>::in(v, name);
    } else {
      std::remove_cv_t<std::remove_reference_t<Py<T>>> py;
      try {
        py = v.cast<std::remove_cv_t<std::remove_reference_t<Py<T>>>>();
      } catch (const py::cast_error&) {
        typeError(name, std::is_floating_point_v<T> ? "a number or None" : "a str or None", v);
      }
      return Arg<T>::in(py, name);
    }
  }
};

// Out<T>: the Python value of a result.
template <class T>
struct Out {
  static py::object out(const T& v) { return py::cast(v); }
};
template <>
struct Out<DtString> {
  static py::object out(const DtString& v) { return py::str(v.c_str()); }
};
template <>
struct Out<DtNetU32> {
  static py::object out(const DtNetU32& v) { return py::int_(static_cast<unsigned int>(v)); }
};
template <>
struct Out<DtVector64> {
  static py::object out(const DtVector64& v) { return py::make_tuple(v.x(), v.y(), v.z()); }
};
template <>
struct Out<DtTaitBryan> {
  static py::object out(const DtTaitBryan& v) { return py::make_tuple(v.psi(), v.theta(), v.phi()); }
};
template <>
struct Out<std::vector<DtVector64>> {
  static py::object out(const std::vector<DtVector64>& v) {
    py::list list;
    for (const auto& p : v) list.append(Out<DtVector64>::out(p));
    return list;
  }
};
template <>
struct Out<DtGlobalObjectDesignatorList> {
  static py::object out(const DtGlobalObjectDesignatorList& v) {
    py::list list;
    for (int i = 0; i < v.count(); ++i) list.append(py::str(v.name(i).c_str()));
    return list;
  }
};
template <>
struct Out<unsigned char*> {
  static py::object out(const unsigned char* v) {
    if (v == nullptr) return py::none();
    return py::make_tuple(v[0], v[1], v[2], v[3]);
  }
};

// Drawing objects live in a std::shared_ptr whose deleter leaves alone an object that a drawer holds: the
// drawer deletes what it owns, and hands an object back to Python when it lets go of it.
std::unordered_set<const DtVdcObject*>& heldByDrawer();
struct ObjectDeleter {
  void operator()(DtVdcObject* obj) const {
    if (heldByDrawer().count(obj) == 0) delete obj;
  }
};

template <class T, class... A>
auto make(A&&... args) {
  if constexpr (std::is_base_of_v<DtVdcObject, T>)
    return std::shared_ptr<T>(new T(std::forward<A>(args)...), ObjectDeleter{});
  else
    return std::make_unique<T>(std::forward<A>(args)...);
}

}  // namespace vpy
