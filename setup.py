"""Builds the compiled module by CMake, the libraries linked into it."""

import os
import pathlib
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = pathlib.Path(__file__).resolve().parent
VERSION = re.search(r'^project\(ValueObject\s+VERSION ([\d.]+)', (ROOT / 'CMakeLists.txt').read_text(), re.M)[1]


class Built_by_cmake(build_ext):
    def build_extension(self, extension):
        build = pathlib.Path(self.build_temp).resolve()
        target = pathlib.Path(self.get_ext_fullpath(extension.name)).resolve()
        options = {
            'CMAKE_BUILD_TYPE': 'Release',
            'BUILD_SHARED_LIBS': 'OFF',
            'Python3_EXECUTABLE': sys.executable,
            'VALUE_OBJECT_PYTHON': 'ON',
            'VALUE_OBJECT_TOOL': 'OFF',
            'VALUE_OBJECT_TESTS': 'OFF',
            'VALUE_OBJECT_EXAMPLES': 'OFF',
        }
        settings = [f'-D{name}={value}' for name, value in options.items()]
        subprocess.run(['cmake', '-S', ROOT, '-B', build, *settings], check=True)
        subprocess.run(['cmake', '--build', build, '--parallel', str(os.cpu_count() or 2), '--target', 'varnix_value_native'], check=True)
        built = next((build / 'python' / 'varnix_value').glob('_native*.so'))
        target.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(['strip', '-o', target, built], check=True)


setup(
    version=VERSION,
    ext_modules=[Extension('varnix_value._native', sources=[])],
    cmdclass={'build_ext': Built_by_cmake},
)
