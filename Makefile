# Short names for the scripts; CMakeLists.txt and CMakePresets.json hold the build itself.

.PHONY: all run test bench clean format

all:
	scripts/install-deps
	scripts/build release

run:
	scripts/run

test:
	scripts/test

bench:
	scripts/install-deps
	scripts/build release
	cmake --build --preset release --target bench

clean:
	rm -rf build/release build/debug build/sanitize build/core-only

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i
