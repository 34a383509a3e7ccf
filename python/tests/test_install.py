"""pip's way in: a venv on Debian's packages, `pip wheel` and `pip install --no-build-isolation`, then
`import kivo` from elsewhere with nothing of the build tree in reach. The CMake build is the one the
suite runs in (KIVO_CMAKE_BUILD_DIR), so that pip adds no second compile to CI's time."""

import importlib.util
import os
import subprocess
import sys

import pytest

ROOT = os.path.join(os.path.dirname(__file__), "..", "..")


@pytest.mark.skipif(importlib.util.find_spec("ensurepip") is None, reason="Debian's python3-venv is not installed")
@pytest.mark.skipif("KIVO_CMAKE_BUILD_DIR" not in os.environ,
                    reason="KIVO_CMAKE_BUILD_DIR (ctest sets it) names the built tree; without one pip builds it all")
def test_pip_installs_the_package_and_its_libraries_into_a_venv(tmp_path):
    venv = tmp_path / "v"
    subprocess.run([sys.executable, "-m", "venv", "--system-site-packages", str(venv)], check=True)
    pip = [str(venv / "bin" / "pip"), "--no-cache-dir", "--disable-pip-version-check", "-q"]
    environment = {k: v for k, v in os.environ.items() if k != "PYTHONPATH"}
    subprocess.run([*pip, "wheel", "--no-build-isolation", "--no-deps", "-w", str(tmp_path), ROOT], check=True,
                   env=environment)
    assert len(list(tmp_path.glob("kivo-*.whl"))) == 1
    subprocess.run([*pip, "install", "--no-build-isolation", ROOT], check=True, env=environment)
    script = ("import importlib.metadata, kivo; print(kivo.__file__, kivo.__version__ == importlib.metadata.version('kivo'),"
              " kivo.format(22356, 'DATE9.'))")
    shown = subprocess.run([str(venv / "bin" / "python"), "-c", script], cwd=tmp_path, env=environment,
                           capture_output=True, text=True, check=True).stdout.split()
    assert shown[0].startswith(str(venv)) and shown[1:] == ["True", "17MAR2021"]
