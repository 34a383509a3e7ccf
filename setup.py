"""setuptools' side of the kivo package: the project's CMake build makes the package, so that the
build is described once. build_ext configures and builds the _kivo target (a Release tree in
build/pip, or the configured tree named by KIVO_CMAKE_BUILD_DIR) and installs the CMake component
kivo_wheel, the package with its libraries beside the module, into the wheel's root."""

import os
import pathlib
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = pathlib.Path(__file__).resolve().parent


def project_version():
    """The version of the project() call in CMakeLists.txt, which kivo.__version__ also gets."""
    return re.search(r"project\(kivoudtmf VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text()).group(1)


class CMakeBuild(build_ext):
    def build_extension(self, ext):
        tree = os.environ.get("KIVO_CMAKE_BUILD_DIR")
        if not tree:
            tree = str(ROOT / "build" / "pip")
            subprocess.run(["cmake", "-S", str(ROOT), "-B", tree, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                            "-DKIVO_BUILD_TESTS=OFF", "-DKIVO_BUILD_BENCHMARKS=OFF",
                            f"-DPYTHON_EXECUTABLE={sys.executable}"], check=True)
        subprocess.run(["cmake", "--build", tree, "--target", "_kivo", "--parallel", "2"], check=True)
        package = pathlib.Path(self.build_lib).resolve()
        subprocess.run(["cmake", "--install", tree, "--component", "kivo_wheel", "--prefix", str(package)], check=True)
        # A wheel holds no links: each library goes in once, under the name the module asks for
        # (libkivoudtmf.so.0), not again under its full version.
        for link in (package / "kivo").glob("lib*.so.*"):
            if link.is_symlink():
                link.resolve().replace(link)


setup(
    version=project_version(),
    packages=[],
    ext_modules=[Extension("kivo._kivo", sources=[])],
    cmdclass={"build_ext": CMakeBuild},
    zip_safe=False,
    options={"egg_info": {"egg_base": "build"}},  # beside CMake's trees, not in the sources
)
