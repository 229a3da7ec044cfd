import fuzzing
import pytest
from helpers import run_script


@pytest.mark.parametrize("seed", fuzzing.SEEDS)
def test_random_calls_end_in_ordinary_errors(tmp_path, seed):
    # In a process of its own, so that a crash fails this test only.
    done = run_script(f"import fuzzing; fuzzing.run({seed}, {str(tmp_path)!r})", timeout=None)
    assert done.returncode == 0, f"exit code {done.returncode}\n{done.stderr[-3000:]}"
