from helpers import run_script, script_output

MESSAGE = "Module 'Tessora' has already been imported. Re-initialisation is not supported."


def test_a_second_initialisation_is_refused():
    lines = script_output("""
import sys
import Tessora as first
node = first.GameNode(None, 3, 4)
child = first.GameNode(node, 1, 1)
for attempt in range(3):
    sys.modules.pop("Tessora", None)
    try:
        import Tessora
    except RuntimeError as error:
        print(type(error).__name__, error)
print("Tessora" in sys.modules)
print(child.GetWXY(), first.GameNode(None).GetX(), node.children == [child])
late = type("Late", (first.GameNode,), {"GetWX": lambda self: 50.0})
print(first.GameNode(late(None)).GetWX())
""")
    refused = ["RuntimeError " + MESSAGE] * 3
    assert lines == [*refused, "False", "(4.0, 5.0) 0 True", "50.0"]


def test_importing_neither_warns_nor_prints_nor_starts_anything():
    script = """
import threading, warnings
warnings.simplefilter("ignore")
import pygame
warnings.simplefilter("error")
print("mark", flush=True)
import Tessora
print(threading.active_count(), pygame.get_init(), pygame.display.get_init())
"""
    done = run_script(script, "-X", "dev", "-W", "error")
    assert done.returncode == 0 and done.stderr == ""
    assert done.stdout.splitlines()[-2:] == ["mark", "1 False False"]


def test_optional_modules_are_used_when_present_and_may_be_missing(tmp_path):
    (tmp_path / "Kovrin.py").write_text("here = True\n")
    add = f"import sys; sys.path.insert(0, {str(tmp_path)!r}); import Tessora"
    assert script_output(add + "; print(Tessora.Kovrin.here)") == ["True"]
    hide = "import sys; sys.modules.update(Kovrin=None, telnetlib=None); import Tessora"
    assert script_output(hide + "; print(Tessora.GameNode(None, 2).x)") == ["2"]


def test_objects_alive_at_exit_do_not_disturb_the_end():
    done = run_script("""
import Tessora as T, sys, pygame
pygame.init()
pygame.display.set_mode((64, 48))
root = type("Hero", (T.GameNode,), {})(None)
keep = [T.GUI_Image(root, 1, 1), T.GUI_Button(root), T.GameLayer(), T.MoveToAction(1, 2, 3)]
root.me = root
root.RunAction(keep[3])
root.draw(pygame.display.get_surface(), 0, 0, 1.0)
sys.ending = root
""")
    assert done.returncode == 0 and done.stderr == ""
