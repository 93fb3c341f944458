# SPDX-License-Identifier: MIT
# Untried. Run from the folder above packaging: conan create packaging/conan
import os

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy

required_conan_version = ">=2.0"


class QuarnFCRecipe(ConanFile):
    name = "quarnfc"
    version = "1.0.0"
    license = "MIT"
    description = "Foundation-class library: strings, collections, JSON, geodesy, HTTP, codecs, CSV, time"
    package_type = "shared-library"
    settings = "os", "compiler", "build_type", "arch"

    def export_sources(self):
        root = os.path.join(self.recipe_folder, "..", "..")
        copy(self, "*", root, self.export_sources_folder, excludes=("build/*", ".git/*"))

    def requirements(self):
        # Off Windows the HTTP client stands on these.
        if self.settings.os != "Windows":
            self.requires("libcurl/[>=7.88 <9]", options={"with_ssl": "openssl"})
            self.requires("openssl/[>=3 <4]")

    def layout(self):
        cmake_layout(self)

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        for part in ("TESTS", "TOOLS", "SAMPLES"):
            toolchain.cache_variables["QUARNFC_BUILD_" + part] = "OFF"
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        # The package configuration that the library installs carries the options of hosts.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs.append(os.path.join("lib", "cmake", "QuarnFC"))
