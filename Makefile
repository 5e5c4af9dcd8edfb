# make run   — install what is missing, build, create the program folder, start the program
# make test  — the same set-up, then the whole test suite
BUILD   ?= build
PROGRAM := $(BUILD)/program
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo

PREFIX ?= /usr/local

.PHONY: all setup configure build run test bench fuzz asan lint screenshot clean install deb

all: build

setup:
	@sh scripts/setup.sh

configure: setup
	@test -f $(BUILD)/build.ninja || cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD)

run: build
	$(PROGRAM)/quillstone --dir $(CURDIR)/$(PROGRAM)

test: build
	cd $(BUILD) && ctest --output-on-failure --timeout 600

# Installs under PREFIX (DESTDIR, when set, is put before it).
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# A Debian package of the program and its data, installed under /usr.
deb: build
	cd $(BUILD) && cpack -G DEB

bench: build
	sh scripts/bench.sh $(BUILD)

# Real fuzzing with libFuzzer (clang); each target runs for FUZZ_SECONDS.
FUZZ_SECONDS ?= 60
fuzz: setup
	@sh scripts/setup.sh clang-14 libclang-rt-14-dev
	@test -f build-fuzz/build.ninja || cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DCMAKE_CXX_COMPILER=clang++-14 -DQS_FUZZ=ON -DQS_BENCH=OFF
	cmake --build build-fuzz
	sh scripts/fuzz.sh build-fuzz $(FUZZ_SECONDS)

# The whole suite under AddressSanitizer and UndefinedBehaviorSanitizer.
asan: setup
	@test -f build-asan/build.ninja || cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQS_SANITIZE=ON -DQS_BENCH=OFF
	cmake --build build-asan
	cd build-asan && ctest --output-on-failure --timeout 900

# clang-format and clang-tidy over the tree; fails on a finding.
lint: build
	@sh scripts/setup.sh clang-format clang-tidy
	sh scripts/lint.sh $(BUILD)

clean:
	rm -rf $(BUILD) build-fuzz build-asan
