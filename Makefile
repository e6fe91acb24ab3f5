# The commands a person needs; everything they need is installed by tools/install_packages.sh.
PRESET ?= release
BUILD := build/$(PRESET)

.PHONY: all demo demo-server test sanitize fuzz bench format lint install package try-package packages readers clean

all: packages
	cmake --preset $(PRESET)
	cmake --build --preset $(PRESET)

packages:
	@tools/install_packages.sh

# The drawing readers that the tests compare with; nothing links to them.
readers: packages
	@[ tests/readers/node_modules/.package-lock.json -nt tests/readers/package-lock.json ] || (cd tests/readers && npm ci --silent --no-audit --no-fund)

# Only what the demo runs is built for it.
demo: packages
	cmake --preset $(PRESET)
	cmake --build --preset $(PRESET) --target grdx grdx-plot
	@tools/demo.sh $(BUILD)

# The same with its projects on a PostgreSQL server, which is there for as long as the demo runs.
demo-server: packages
	cmake --preset $(PRESET)
	cmake --build --preset $(PRESET) --target grdx grdx-plot
	@tools/test_server.sh tools/demo.sh $(BUILD)

test: all readers
	ctest --preset $(PRESET) -j2

sanitize:
	$(MAKE) test PRESET=sanitize

SECONDS ?= 60
fuzz: packages
	@fuzz/run.sh $(SECONDS)

bench: all readers
	@bench/run.sh $(BUILD)
	@tools/test_server.sh bench/server.sh $(BUILD)

# Into PREFIX; DESTDIR is put in front of it.
PREFIX ?= /usr/local
install: packages
	cmake --preset $(PRESET)
	cmake --build --preset $(PRESET) --target installable
	cmake --install $(BUILD) --prefix $(PREFIX)

# A Debian package, below $(BUILD)/package.
package: packages
	cmake --preset $(PRESET)
	cmake --build --preset $(PRESET) --target installable
	rm -rf $(BUILD)/package
	cd $(BUILD) && cpack -G DEB

# The package looked through, and installed, used and removed in an empty Debian system.
try-package: package
	lintian --fail-on error $(BUILD)/package/*.deb
	packaging/try_package.sh $(BUILD)/package/*.deb

format: packages
	@tools/format.sh

lint: packages
	cmake --preset lint
	@tools/lint.sh build/lint $(LINT_SECONDS)

clean:
	rm -rf build demo
