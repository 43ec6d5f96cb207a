"""Untested. A Conan 2 recipe, which packages the tree that it lies in."""
import os

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class TrelvonUnits(ConanFile):
    name = "trelvonunits"
    version = "1.0.0"
    description = "Units of measure: definitions, conversions, formulas and display text"
    license = "MIT"
    package_type = "shared-library"
    settings = "os", "arch", "compiler", "build_type"

    def export_sources(self):
        root = os.path.join(self.recipe_folder, "..", "..")
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "include/*", "schemas/*", "src/*"):
            copy(self, pattern, src=root, dst=self.export_sources_folder)

    def requirements(self):
        self.requires("rapidjson/cci.20230929", visible=False)  # headers, needed to build alone

    def validate(self):
        check_min_cppstd(self, 17)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        for option in ("TESTS", "EXAMPLES", "TOOL"):
            toolchain.cache_variables[f"TRELVONUNITS_{option}"] = False
        headers = self.dependencies["rapidjson"].cpp_info.includedirs[0]
        toolchain.cache_variables["TRELVONUNITS_RAPIDJSON_DIR"] = headers
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        # Hosts find the package that the installation brings.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "TrelvonUnits")]
        self.cpp_info.libs = ["TrelvonUnits"]
