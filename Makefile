# Two entry points for a fresh Debian machine (as root):
#   make run   installs what is missing, builds, starts the program
#   make test  installs what is missing, builds, runs every test
BUILD ?= build
TYPE  ?= RelWithDebInfo
JOBS  ?= $(shell nproc)
PKGS  := $(shell grep -v '^\s*\#' packages.txt | grep -v '^\s*$$')

.PHONY: deps configure build run test bench sanitize clean install

deps:
	@missing=""; for p in $(PKGS); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "installing:$$missing"; \
	  apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $$missing; \
	fi

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=$(TYPE) $(CMAKE_ARGS)

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./$(BUILD)/orvane

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B build-release -DCMAKE_BUILD_TYPE=Release -DORVANE_BENCH=ON
	cmake --build build-release -j $(JOBS)
	for b in build-release/bench/*_bench; do $$b; done

sanitize:
	$(MAKE) test BUILD=build-asan TYPE=Debug CMAKE_ARGS=-DORVANE_SANITIZE=ON

install: build
	cmake --install $(BUILD)

clean:
	rm -rf $(BUILD) build-release build-asan
