"""The fox: a character of five parts that stands, runs, jumps and falls, to either side."""

import Tessora

SIZE = WIDTH, HEIGHT = 36, 50
FRAME_SECONDS = 0.04
# What walls stop: narrower than the picture, and the same in every pose.
BODY = (8, 8, 20, 42)

# Part by part, from the back to the front: the picture, and its centre in a figure to the right.
PARTS = (
    ("fox_tail.png", 3, 35),
    ("fox_leg.png", 13, 41),
    ("fox_leg.png", 23, 41),
    ("fox_body.png", 17, 33),
    ("fox_head.png", 20, 16),
)

# Key frames by action: how far each part is moved (right, down) and turned (degrees).
REST = ((0, 0, 20), (0, 0, 0), (0, 0, 0), (0, 0, 0), (0, 0, 0))
BREATH = ((0, 0, 8), (0, 0, 0), (0, 0, 0), (0, 1, 0), (0, 1.5, 0))
STRIDE = ((0, -2, -10), (-5, -2, -45), (5, -1, 40), (1, -1, -6), (2, -1, -4))
PASS = ((0, 1, 10), (4, -1, 10), (-4, 0, -10), (1, 1, -6), (2, 1, -2))
CROSS = ((0, -2, -10), (8, -1, 40), (-12, -2, -45), (1, -1, -6), (2, -1, -4))
RISE = ((0, 4, 45), (-3, -1, -35), (1, -5, 40), (0, -1, 10), (1, -2, 10))
DROP = ((0, -6, -40), (-3, -2, 25), (3, -3, -25), (0, 0, -5), (1, 1, -10))

ACTIONS = {
    "stand": {0: REST, 14: BREATH, 28: REST},
    "run": {0: STRIDE, 3: PASS, 6: CROSS, 9: PASS, 12: STRIDE},
    "jump": {0: RISE},
    "fall": {0: DROP},
}


class Fox(Tessora.GameCharacter):
    def __init__(self, x, y):
        super().__init__(None, x, y)
        self.SetWidth(WIDTH)
        self.SetHeight(HEIGHT)
        self.SetRectListVisible(False)
        self.SetCharacterBindingVar("speed", 230)
        self.SetCharacterBindingVar("jumpspeed", -570)
        self.SetCharacterBindingVar("gravity", 1500)
        self.facing = 1
        for name, frames in ACTIONS.items():
            for side in (1, -1):
                self.build(f"{name} {side}", frames, side)
        self.show("stand")

    def build(self, action, frames, side):
        self.AddAction(action, FRAME_SECONDS)
        for index, pose in frames.items():
            self.AddKeyFrame(action, index, 1)
            for part, (file, x, y) in enumerate(PARTS):
                right, down, turn = pose[part]
                place = WIDTH / 2 + side * (x + right - WIDTH / 2), y + down
                self.SetKeyFrame_Image(action, index, file, part)
                self.SetKeyFrame_Anchor(action, index, "center", part)
                self.SetKeyFrame_Position(action, index, place, part)
                self.SetKeyFrame_Rotate(action, index, side * turn, part)
        self.SetKeyFrame_RectList(action, 0, [BODY])

    def show(self, name):
        action = f"{name} {self.facing}"
        if action != self.GetCurrActionName():
            self.SetFlipX(self.facing < 0)
            self.PlayAction(action, True)
            # At once, so that no frame is drawn before the parts have their places.
            self.updateFrames(0)

    def show_movement(self, on_ground):
        if self.moveDir[0]:
            self.facing = 1 if self.moveDir[0] > 0 else -1
        if not on_ground:
            self.show("jump" if self.IsUpState() else "fall")
        else:
            self.show("run" if self.moveDir[0] else "stand")
