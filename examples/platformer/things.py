"""What the game is made of beside its map and its hero: pictures, texts, beetles, moves."""

import pygame
import Tessora

FONT = pygame.font.get_default_font()


def play_sound(name):
    """A machine without sound plays the game all the same."""
    if pygame.mixer.get_init():
        Tessora.Res.PlaySound(name)


def picture(x, y, files, seconds=0.0):
    """A picture, or with several files one that changes every so many seconds."""
    made = Tessora.GUI_Image(None, x, y)
    made.SetImage(files, seconds)
    made.SetAutoSwitch(seconds > 0)
    made.AutoImageSize(True)
    made.SetStyle("hollow", False)
    made.DropBGColor()
    return made


def text(x, y, width, size, colour, align="left"):
    made = Tessora.GUI_Label(None, x, y, "", FONT, size)
    made.SetWidth(width)
    made.SetHeight(size + 10)
    made.SetStyle("hollow", False)
    made.SetTextColor(*colour)
    made.SetTextHAlign(align)
    return made


def move(walls, node, across, down):
    """Move a node as far as the walls let it; returns whether they stopped it, by direction."""
    stopped = walls.checkCollision(node, across, down)
    for axis, way in enumerate((across, down)):
        place = "xy"[axis]
        if not stopped[axis]:
            setattr(node, place, getattr(node, place) + way)
            continue
        # Up to the wall, pixel by pixel.
        step = [0, 0]
        step[axis] = 1 if way > 0 else -1
        setattr(node, place, int(getattr(node, place)))
        while not walls.checkCollision(node, *step)[axis]:
            setattr(node, place, getattr(node, place) + step[axis])
    return stopped


class Beetle(Tessora.GUI_Image):
    """Walks to and fro between walls and edges."""

    speed = 45

    def __init__(self, x, y, walls):
        super().__init__(None, x, y)
        frames = [Tessora.Res.LoadImage(f"beetle{number}.png") for number in (1, 2)]
        flipped = [pygame.transform.flip(frame, True, False) for frame in frames]
        self.frames = {1: frames, -1: flipped}
        self.walls = walls
        self.SetStyle("hollow", False)
        self.DropBGColor()
        self.turn(-1)
        self.SetUpdateFunction(self.walk)

    def turn(self, way):
        self.way = way
        self.SetImage(self.frames[way], 0.16)
        self.SetAutoSwitch(True)
        self.AutoImageSize(True)

    def walk(self, delay):
        front = self.x + (self.width if self.way > 0 else 0)
        below = self.walls.GetTile_RC(front, self.y + self.height + 4)
        stopped = move(self.walls, self, self.way * self.speed * delay, 0)[0]
        if stopped or not self.walls.GetTileCollision(*below):
            self.turn(-self.way)
