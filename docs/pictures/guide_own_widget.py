"""The example of widgets written in Python."""

from parts.looks import example


def picture():
    return example("own_widget", 1.0, (640, 400), [(0.3, 50, 70), (0.5, 340, 120), (0.9, 60, 208)])
