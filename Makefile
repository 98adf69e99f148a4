# The usual commands. Everything behind them is CMake: see CMakePresets.json for the builds.

JOBS ?= $(shell nproc)
BUILD := build/release
MAKEFLAGS += --no-print-directory

.DEFAULT_GOAL := help
.PHONY: help demo test size clean dependencies release

help:
	@echo "make demo   build everything, let a camera and a client talk over loopback"
	@echo "make test   build everything, run the tests"
	@echo "make size   size of the shared library"
	@echo "make clean  remove build/"

demo: release
	scripts/demo.sh $(BUILD)

test: release
	cd $(BUILD) && ctest --output-on-failure

size: dependencies
	cmake --preset shared -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_EXAMPLES=OFF -B build/size
	cmake --build build/size --parallel $(JOBS)
	size build/size/src/libzelprotocol.so build/size/platform/libzelplatform.so

clean:
	rm -rf build

dependencies:
	scripts/install-dependencies.sh

release: dependencies
	cmake --preset release
	cmake --build $(BUILD) --parallel $(JOBS)
