"""Makes one wheel for all versions of Python on this platform, from the folder that CMake fills.

Everything else, such as the version, is in pyproject.toml.
"""
from setuptools import setup
from wheel.bdist_wheel import bdist_wheel


class Wheel(bdist_wheel):
    """No module is compiled for Python, but the library is specific to the platform."""

    def finalize_options(self):
        super().finalize_options()
        self.root_is_pure = False

    def get_tag(self):
        return "py3", "none", super().get_tag()[2]


setup(cmdclass={"bdist_wheel": Wheel})
