# The usual commands. Everything behind them is CMake: see CMakePresets.json for the builds.

JOBS ?= $(shell nproc)
BUILD := build/release
MAKEFLAGS += --no-print-directory

.DEFAULT_GOAL := help
.PHONY: help demo test package coverage size footprint bench costs records pages docs abi fuzz corpus fuzz-coverage clean dependencies release build-fuzz

help:
	@echo "make demo   build everything, let a camera and a client talk over loopback"
	@echo "make test   build everything, run the tests"
	@echo "make coverage  which lines and branches the tests reach; make fuzz-coverage, which the fuzzers do"
	@echo "make package  Debian packages, into build/package"
	@echo "make size   how large the libraries are, and what a program takes of them"
	@echo "make bench  how fast the messages are beside code written by hand; also in build/bench.json"
	@echo "            and, as a picture, in docs/bench.svg"
	@echo "make footprint  what the library takes of a device, into docs/footprint.md"
	@echo "make costs  what every message costs, into docs/costs.md"
	@echo "make records what the records hold, into src/catalogue/records.inc, after a change of the headers"
	@echo "make pages  what each message is made of, into docs/messages, after a change of the messages"
	@echo "make docs   the C API's pages, into build/docs/html"
	@echo "make abi    records and functions as programs are linked with them, into abi/, at a release"
	@echo "make fuzz   build the fuzzers, run each for FUZZ_SECONDS (60)"
	@echo "make corpus renew what the fuzzers start from, after a change of the messages"
	@echo "make clean  remove build/"

demo: release
	scripts/demo.sh $(BUILD)

test: release
	cd $(BUILD) && ctest --output-on-failure

package:
	scripts/install-dependencies.sh package
	cmake --preset package
	cmake --build --preset package --parallel $(JOBS)
	rm -f build/package/*.deb
	cd build/package && cpack

coverage:
	scripts/install-dependencies.sh coverage
	scripts/coverage.sh

size: dependencies
	scripts/size.sh

footprint:
	scripts/install-dependencies.sh footprint
	scripts/footprint.sh write

bench:
	scripts/install-dependencies.sh bench
	cmake --preset release -B build/bench -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_EXAMPLES=OFF -DZEL_BUILD_INSPECT=OFF \
		-DZEL_BUILD_BENCH=ON -DZEL_BENCH_COSTS=OFF
	cmake --build build/bench --parallel $(JOBS)
	build/bench/bench/zel_bench --json=build/bench.json
	scripts/bench-chart.sh build/bench.json >docs/bench.svg

costs:
	scripts/install-dependencies.sh costs
	scripts/costs.sh write

abi:
	scripts/install-dependencies.sh abi
	scripts/abi.sh write

records:
	scripts/install-dependencies.sh records
	scripts/record-fields.py write

pages: dependencies
	cmake --preset release
	cmake --build $(BUILD) --parallel $(JOBS) --target zel_pages
	mkdir -p docs/messages
	$(BUILD)/inspect/zel_pages docs/messages

docs:
	scripts/install-dependencies.sh docs
	mkdir -p build/docs
	doxygen docs/Doxyfile

FUZZ_SECONDS ?= 60

fuzz: build-fuzz
	fuzz/run.sh build/fuzz $(FUZZ_SECONDS)

corpus: build-fuzz
	build/fuzz/fuzz/make_corpus fuzz

# Which lines the committed corpus and a short run reach.
fuzz-coverage:
	scripts/install-dependencies.sh fuzz
	fuzz/coverage.sh build/fuzz-coverage $(FUZZ_SECONDS)

build-fuzz:
	scripts/install-dependencies.sh fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz --parallel $(JOBS)

clean:
	rm -rf build

dependencies:
	scripts/install-dependencies.sh

release: dependencies
	cmake --preset release
	cmake --build $(BUILD) --parallel $(JOBS)
