import ast
import os
import subprocess
import sys

import vistral

HERE = os.path.dirname(os.path.abspath(__file__))
STUBS = os.path.join(os.path.dirname(vistral.__file__), "__init__.pyi")


def stub_names(text):
    """Top-level names and each class's members, as the stub declares them."""
    names = set()
    for node in ast.parse(text).body:
        if isinstance(node, ast.ClassDef):
            names.add(node.name)
            for item in node.body:
                if isinstance(item, (ast.FunctionDef, ast.ClassDef, ast.AnnAssign)):
                    target = item.target.id if isinstance(item, ast.AnnAssign) else item.name
                    names.add(node.name + "." + target)
        elif isinstance(node, ast.FunctionDef):
            names.add(node.name)
        elif isinstance(node, ast.Assign):
            names.update(t.id for t in node.targets)
        elif isinstance(node, ast.AnnAssign):
            names.add(node.target.id)
    return names


def test_the_stubs_name_what_the_module_has_and_are_current():
    with open(STUBS, encoding="utf-8") as f:
        committed = f.read()
    names = stub_names(committed)
    public = {n for n in dir(vistral) if not n.startswith("_")}
    assert public - names == set(), "in the module, not in the stubs"
    assert {n for n in names if "." not in n and not n.startswith("_")} - public == set(), "in the stubs only"
    for cls in (vistral.OrbitVCPdu, vistral.RemoteController, vistral.VdcLine2DObject, vistral.Emulator):
        members = {n for n in cls.__dict__ if not n.startswith("_")}
        assert {cls.__name__ + "." + m for m in members} <= names
    # Regenerated from the module, they are what is committed: rerun python/tools/make_stubs.py when not.
    env = dict(os.environ, PYTHONPATH=os.path.dirname(os.path.dirname(vistral.__file__)))
    made = subprocess.run([sys.executable, os.path.join(HERE, "..", "tools", "make_stubs.py")],
                          capture_output=True, text=True, check=True, env=env).stdout
    assert made == committed


def test_docstrings_come_from_the_headers():
    assert vistral.OrbitVCPdu.attach_id.__doc__.startswith("The entity the eye circles")
    assert "a null pointer leaves its field unset" in vistral.RemoteController.set_orbit_mode.__doc__
    assert vistral.VdcLine2DObject.__doc__.startswith("A line in the viewer's screen plane")
