# The work is done by tools/dev.py, which runs on any Python; this file only finds one.
#
#   PYTHON=...   the Python to use (else the first of python3.8 and python3 that runs)
#   VENV=...     the virtual environment (.venv)
#   ARGS=...     more arguments for the command, for example ARGS="-k label -x"
#   FILE=...     the script that "make run" runs
#   GAME=...     the game that "make demo" plays, a folder of examples/ (star_catcher)

VENV ?= .venv
ARGS ?=
GAME ?= star_catcher

commands := test demo run bench docs build asan clang lint format stubs stubs-check wheel-check windows-check test-all test-ce

help:
	@echo "make demo           play the demo game; GAME=platformer plays the other one"
	@echo "make run FILE=...   run a script of yours with the module, in the same environment"
	@echo "make test           build the module and run the tests"
	@echo "make test-ce        the tests with pygame-ce in place of pygame"
	@echo "make test-all       the tests on every Python found, with pygame and pygame-ce"
	@echo "make bench          measure the engine, as a table of ratios"
	@echo "make docs           build the manual into build/docs/html"
	@echo "make asan           the tests under AddressSanitizer and UBSan (Linux)"
	@echo "make lint           clang-format, clang-tidy, ruff and the project's rules"
	@echo "make format         lay out all sources with clang-format and ruff"
	@echo "make stubs          write Tessora.pyi from what the built module says of itself"
	@echo "make stubs-check    compare Tessora.pyi with the built module"
	@echo "make wheel-check    build source package and wheel, install, import, type-check"
	@echo "make windows-check  compile and link for 64-bit Windows with MinGW"
	@echo "make clang          build with clang++, warnings as errors"
	@echo "make build          build the module only"
	@echo "make clean          remove what was built; make distclean: the environments too"

$(commands):
	@set -- $(if $(PYTHON),'$(PYTHON)',python3.8 python3); \
	for python in "$$@"; do \
	  if "$$python" -c '' >/dev/null 2>&1; then \
	    if "$$python" -c 'import sys; sys.exit(sys.version_info < (3, 8))'; then \
	      exec "$$python" tools/dev.py --venv '$(VENV)' $@ $(if $(filter run,$@),'$(FILE)') $(if $(filter demo,$@),'$(GAME)') $(ARGS); \
	    fi; \
	    old="$$python"; \
	  fi; \
	done; \
	if [ -n "$$old" ]; then \
	  echo "error: $$old is older than 3.8: install Python 3.8 or newer, or name one with PYTHON=..." >&2; \
	else \
	  echo "error: no Python that runs ($$*): install Python 3.8 or newer (Debian, Ubuntu: apt install python3 python3-venv python3-dev), or name one with PYTHON=..." >&2; \
	fi; \
	exit 1

clean:
	rm -rf build

distclean: clean
	rm -rf .venv .venv-* .nox

.PHONY: help clean distclean $(commands)
.NOTPARALLEL:
