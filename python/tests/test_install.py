"""pip's way in: a venv on Debian's packages, `pip wheel` and `pip install --no-build-isolation .`,
then `import kivo` from elsewhere with nothing of the build tree in reach. The wheel reuses the tree
the suite runs in (KIVO_CMAKE_BUILD_DIR, which ctest sets); the install builds as a user's does, in
build/pip, which takes about 30 s on two cores the first time and seconds after that."""

import importlib.util
import os
import subprocess
import sys

import pytest

ROOT = os.path.join(os.path.dirname(__file__), "..", "..")


@pytest.mark.skipif(importlib.util.find_spec("ensurepip") is None, reason="Debian's python3-venv is not installed")
def test_pip_installs_the_package_and_its_libraries_into_a_venv(tmp_path):
    venv = tmp_path / "v"
    subprocess.run([sys.executable, "-m", "venv", "--system-site-packages", str(venv)], check=True)
    pip = [str(venv / "bin" / "pip"), "--no-cache-dir", "--disable-pip-version-check", "-q"]
    user = {k: v for k, v in os.environ.items() if k not in ("PYTHONPATH", "KIVO_CMAKE_BUILD_DIR")}
    subprocess.run([*pip, "wheel", "--no-build-isolation", "--no-deps", "-w", str(tmp_path), ROOT], check=True,
                   env={k: v for k, v in os.environ.items() if k != "PYTHONPATH"})
    assert len(list(tmp_path.glob("kivo-*.whl"))) == 1
    subprocess.run([*pip, "install", "--no-build-isolation", ROOT], check=True, env=user)
    script = ("import importlib.metadata, kivo; print(kivo.__file__,"
              " kivo.__version__ == importlib.metadata.version('kivo'), kivo.format(22356, 'DATE9.'))")
    shown = subprocess.run([str(venv / "bin" / "python"), "-c", script], cwd=tmp_path, env=user,
                           capture_output=True, text=True, check=True).stdout.split()
    assert shown[0].startswith(str(venv)) and shown[1:] == ["True", "17MAR2021"]
