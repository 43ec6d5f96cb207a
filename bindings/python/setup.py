"""Makes one wheel for all versions of Python and this platform, of the folder that CMake fills.

The version and all else stand in pyproject.toml.
"""
from setuptools import setup
from wheel.bdist_wheel import bdist_wheel


class Wheel(bdist_wheel):
    """No module is compiled for Python, but the library is for the platform."""

    def finalize_options(self):
        super().finalize_options()
        self.root_is_pure = False

    def get_tag(self):
        return "py3", "none", super().get_tag()[2]


setup(cmdclass={"bdist_wheel": Wheel})
