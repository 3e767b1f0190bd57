"""Steer, draw on and check remote Vistral viewers from Python.

Every byte comes from the C++ library: this package is its pybind11 module (``_vistral``) under names in
Python's idiom. The C++ names drop their ``Dt`` prefix (``DtOrbitVCPdu`` is ``OrbitVCPdu``) and members are
snake_case (``setAzimuthRate`` is the property ``azimuth_rate``).
"""
from ._vistral import *  # noqa: F401,F403
from ._vistral import Error, VistralControlPdu, _orbit_loop  # noqa: F401

# Shorter names for the four long-lived objects.
Controller = RemoteController  # noqa: F405
Drawer = RemoteDrawer  # noqa: F405
