# A short front for CMake; `cmake --preset release` and its companions work alone, too.
PRESETS := release debug clang asan tsan coverage
# What each target gets.
FUZZ_SECONDS := 10
EXPLORER := build/release/examples/impact-explorer/impact-explorer

.PHONY: help demo test test-install check docs coverage soak bench format setup setup-check headers symbols tidy fuzz \
        $(PRESETS:%=build-%) $(PRESETS:%=test-%)

help:
	@echo "make demo     draw the example figures into build/demo/, and open a window if there is a display"
	@echo "make test     build and run the tests"
	@echo "make check    all that a change has to pass; the tests are a part of it"
	@echo "make docs     write the reference of the headers into build/docs/html"
	@echo "make coverage run the tests and show which lines and branches of the libraries they reach"
	@echo "make fuzz     feed the fuzz targets, FUZZ_SECONDS=$(FUZZ_SECONDS) each"
	@echo "make symbols  renew the lists of what the libraries export"
	@echo "make soak     do a million random things to figures, and look whether memory stays flat"
	@echo "make bench    time complete figures; docs/performance.md says how they compare"
	@echo "make format   put the sources into the common format"
	@echo "build-PRESET and test-PRESET exist for the presets $(PRESETS);"
	@echo "tsan builds and runs what has to do with threads."

demo: build/release/build.ninja
	@cmake --build --preset release --target impact-explorer
	@mkdir -p build/demo
	@for theme in black white print; do for type in png pdf svg; do \
	  $(EXPLORER) --theme $$theme --size 800x500 --scale 2 \
	    --export build/demo/impact-explorer-$$theme.$$type && \
	  $(EXPLORER) --figure color --theme $$theme --size 800x500 --scale 2 \
	    --export build/demo/impact-speed-$$theme.$$type || exit; done; done
	@$(EXPLORER) --figure tables --size 800x680 --scale 2 \
	  --export build/demo/colour-tables.png --export build/demo/colour-tables.pdf
	@echo "The figures are in $(CURDIR)/build/demo:"
	@ls build/demo
	@if test -n "$$DISPLAY$$WAYLAND_DISPLAY" -a -e build/release/hosts/Qt/libvexel-qt.so; then \
	  echo "A window opens; close it to go on."; $(EXPLORER); fi

test: test-release

check: setup-check
	@tools/check-tree
	@$(MAKE) --no-print-directory test-release headers docs tidy test-clang test-install test-tsan test-asan fuzz

# Every public declaration says what it is.
docs: setup-check
	@mkdir -p build/docs
	@doxygen docs/Doxyfile

# What the tests reach of the libraries, line by line in build/coverage/html.
coverage: setup-check
	@$(MAKE) --no-print-directory build-coverage
	@find build/coverage -name '*.gcda' -delete
	@$(MAKE) --no-print-directory test-coverage
	@mkdir -p build/coverage/html
	@gcovr --root . --object-directory build/coverage -j 2 --exclude-throw-branches --exclude-unreachable-branches \
	  --filter '(platform|hosts|PlotTheme|PlotColorTable|Vexel|VexelWithMarkers)/' \
	  --txt build/coverage/summary.txt --html-details build/coverage/html/index.html build/coverage
	@tail -4 build/coverage/summary.txt; echo "build/coverage/html/index.html shows them line by line."

soak: build-release
	@build/release/tests/soak 1000000

bench: build/release/build.ninja
	@dpkg -s libbenchmark-dev >/dev/null 2>&1 || { echo "bench: libbenchmark-dev is missing" >&2; exit 1; }
	@cmake --preset release -DVEXEL_BENCHMARKS=ON >/dev/null
	@cmake --build --preset release --target scenes
	@for scene in "W1 1e4" "W1 1e5" "W1 1e6" "W1 1e7" "W2 1e3" "W2 1e4" "W2 1e5" "W2 1e6" "W3" \
	  "W4 1e6" "W4 1e7" "W6 1e3" "W6 1e7" "many 1000" "append 1e7"; do \
	  build/release/benchmarks/scenes $$scene || exit; done

format: setup-check
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

setup:
	@tools/setup

setup-check:
	@tools/setup check

# CMake notices later changes by itself, except those of the presets.
$(PRESETS:%=build/%/build.ninja) build/fuzz/build.ninja: build/%/build.ninja: CMakePresets.json | setup
	@cmake --preset $*

$(PRESETS:%=build-%): build-%: build/%/build.ninja
	@cmake --build --preset $*

$(PRESETS:%=test-%): test-%: build-%
	@ctest --preset $*

fuzz: setup-check build/fuzz/build.ninja
	@cmake --build --preset fuzz
	@tools/fuzz $(FUZZ_SECONDS)

# Every public header compiles alone.
headers: build/release/build.ninja
	@cmake --build --preset release --target headers

# What the libraries are meant to export; a test compares.
symbols: build/release/build.ninja
	@cmake --build --preset release --target vexel VexelQt
	@tools/exported-symbols build/release/libvexel.so >tests/symbols/libvexel.txt
	@tools/exported-symbols build/release/hosts/Qt/libvexel-qt.so >tests/symbols/libvexel-qt.txt

# Both compilers, shared and static, installed, packed and as a subdirectory.
test-install: setup-check
	@tests/consumer/test-install

# Lint runs beside the compiler, in a tree of its own, on what changed since it was last clean.
tidy: build/tidy/build.ninja
	@cmake --build build/tidy --target vexel examples/all

build/tidy/build.ninja: CMakePresets.json | setup-check
	@cmake --preset debug -B build/tidy -DCMAKE_CXX_CLANG_TIDY="clang-tidy-16;--quiet;--extra-arg=-Wno-unknown-warning-option"
