# A short front for CMake; `cmake --preset release` and its companions work alone, too.
PRESETS := release debug asan coverage
EXPLORER := build/release/examples/impact-explorer/impact-explorer

.PHONY: help demo test check setup format headers tidy $(PRESETS:%=build-%) $(PRESETS:%=test-%)

help:
	@echo "make demo     draw the example figures into build/demo/"
	@echo "make test     build and run the tests"
	@echo "make check    what a change has to pass: tests, sanitizers, format, lone headers, lint"
	@echo "make format   put the sources into the common format"
	@echo "More: build-PRESET and test-PRESET for the presets $(PRESETS)"

demo: build-release
	@mkdir -p build/demo
	@for theme in black white print; do for type in png pdf svg; do \
	  $(EXPLORER) --theme $$theme --size 1600x1000 \
	    --export build/demo/impact-explorer-$$theme.$$type || exit; done; done
	@echo "The figures are in $(CURDIR)/build/demo:"
	@ls build/demo

test: test-release

check: setup-check
	@tools/check-tree
	@$(MAKE) --no-print-directory test headers tidy test-asan

setup:
	@tools/setup

setup-check:
	@tools/setup check

# CMake notices later changes by itself, except those of the presets.
$(PRESETS:%=build/%/build.ninja): build/%/build.ninja: CMakePresets.json | setup
	@cmake --preset $*

$(PRESETS:%=build-%): build-%: build/%/build.ninja
	@cmake --build --preset $*

$(PRESETS:%=test-%): test-%: build-%
	@ctest --preset $*
