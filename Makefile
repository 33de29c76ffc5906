# The front door; CMakePresets.json is what stands behind it.

JOBS ?= $(shell nproc 2>/dev/null || echo 2)
PREFIX ?= /usr/local
EXAMPLE ?= halden

.PHONY: run build test bench install asan tsan fuzz check-format check-includes format tidy \
  tidy-changed clean setup

run: build
	build/bin/orvane run $(EXAMPLE)

build: setup
	cmake --preset release
	cmake --build --preset release -j $(JOBS)

test: build
	ctest --preset release -j $(JOBS)

bench: setup
	cmake --preset release -DORVANE_BUILD_BENCHMARKS=ON
	cmake --build --preset release -j $(JOBS)
	build/bin/orvane_bench

install: build
	cmake --install build --prefix $(PREFIX)

# The same tests, without JUCE, compiled by clang and run under the sanitizers: address and undefined
# behaviour, threads.
asan tsan: setup
	@scripts/sanitized $@ true
	cmake --preset $@
	cmake --build --preset $@ -j $(JOBS)
	scripts/sanitized $@ ctest --preset $@ -j $(JOBS)

# Builds the fuzzers; run one as build-fuzz/bin/fuzz_<name> fuzz/corpus/<folder>.
fuzz: setup
	cmake --preset fuzz
	cmake --build --preset fuzz -j $(JOBS)

# What git knows of, and what it does not know of yet.
SOURCES = git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp'

check-format: setup
	$(SOURCES) | xargs -0 -r clang-format --dry-run --Werror

format: setup
	$(SOURCES) | xargs -0 -r clang-format -i

# Who may include whom.
check-includes: setup
	cmake -DROOT=$(CURDIR) -P tests/IncludeRules.cmake

# Reads what the release build would compile; what only that build generates has to be there.
TIDY = xargs -r -n 2 -P $(JOBS) clang-tidy -p build --quiet --extra-arg=-Wno-unknown-warning-option

tidy: build
	git ls-files --cached --others --exclude-standard -- '*.cpp' | $(TIDY)

# The same for what was changed lately.
tidy-changed: build
	scripts/changed-sources | $(TIDY)

clean:
	rm -rf build build-*

setup:
	@scripts/setup
