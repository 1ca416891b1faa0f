# Two entry points: `make demo` and `make test`. Both install what is
# missing first (scripts/bootstrap), so they work on a fresh machine.
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
RELEASE_DIR := build/release
TEST_DIR := build/sanitize
BENCH_DIR := build/bench
DEMO_FILE ?= data/examples/hello.wrl

.PHONY: all demo test bench bootstrap release clean

all: release

bootstrap:
	bash scripts/bootstrap

release: bootstrap
	cmake -S . -B $(RELEASE_DIR) -DCMAKE_BUILD_TYPE=Release -DWRL_BUILD_TESTS=OFF
	cmake --build $(RELEASE_DIR) -j $(JOBS)

demo: release
	$(RELEASE_DIR)/bin/wrlload $(DEMO_FILE)

test: bootstrap
	cmake -S . -B $(TEST_DIR) -DCMAKE_BUILD_TYPE=Debug -DWRL_SANITIZE=ON -DWRL_BUILD_TESTS=ON
	cmake --build $(TEST_DIR) -j $(JOBS)
	cd $(TEST_DIR) && ctest --output-on-failure -j $(JOBS)

bench: bootstrap
	cmake -S . -B $(BENCH_DIR) -DCMAKE_BUILD_TYPE=Release -DWRL_BUILD_TESTS=OFF -DWRL_BUILD_BENCH=ON
	cmake --build $(BENCH_DIR) -j $(JOBS)
	@for b in $(BENCH_DIR)/bin/bench_*; do [ -x "$$b" ] && "$$b" || exit 1; done

clean:
	rm -rf build
