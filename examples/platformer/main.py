"""The Way Home: a fox runs and jumps over a map of tiles, gathers coins and minds the beetles.

Arrow keys walk, the space bar jumps, Return plays again. Without a display, or with
TESSORA_HEADLESS=1, the game plays itself and saves `platformer.png`.
"""

import os

import autoplay
import pygame
import Tessora
from figure import HEIGHT as FOX_HEIGHT
from figure import Fox
from things import Beetle, move, picture, play_sound, text

SIZE = WIDTH, HEIGHT = 800, 480
TILE = 32
FOLDER = os.path.dirname(os.path.abspath(__file__))
ASSETS = os.path.join(FOLDER, "assets")
FONT_FILE = os.path.join(os.path.dirname(pygame.__file__), pygame.font.get_default_font())
INK, CREAM = (62, 40, 52), (255, 244, 222)
# A slow frame moves the fox no further than this.
LONGEST_STEP = 1 / 30

# What the letters of the level stand for; "#" is grass or earth, depending on its neighbours.
EARTH = ("earth1.png", "earth2.png", "earth3.png", "grass.png", "grass_l.png", "grass_r.png")
SOLID = (*EARTH, "stone.png", "plank.png")
TILES = (*SOLID, "flowers.png", "bush.png")
LETTERS = {"S": "stone.png", "=": "plank.png", "*": "flowers.png", "%": "bush.png"}


class Game:
    """The scene: it owns the layers, and hands the map the nodes of its tiles."""

    def __init__(self, screen):
        self.screen = screen
        self.running = True
        Tessora.Res = Tessora.PyGameResManager(ASSETS)
        Tessora.Res.AddNewResFile(FONT_FILE)
        # A plain list's look-up calls no script: the map then visits visible tiles only.
        self.tiles = [picture(0, 0, file) for file in TILES]
        self.GetLayerResNode = self.tiles.__getitem__
        for index, tile in enumerate(self.tiles):
            tile.SetCollision(1 if TILES[index] in SOLID else -1, None)
        self.start()

    def GetSceneSize(self):
        return SIZE

    def SetPlayer(self, player):
        self.player = player

    def start(self):
        self.layers = [Tessora.GameLayer() for _ in range(4)]
        self.sky, self.hills, self.world, self.hud = self.layers
        for layer in self.layers:
            layer.OnLoad(self)
        self.coins, self.beetles = [], []
        self.gathered, self.seconds, self.finished = 0, 0.0, False
        self.sky.AddGameNode(picture(0, 0, "sky.png"))
        self.build_level()
        for x in range(0, WIDTH + int(self.level_width * 0.4), WIDTH):
            self.hills.AddGameNode(picture(x, HEIGHT - 260 + 40, "hills.png"))
        self.hud.AddGameNode(picture(16, 14, "coin1.png"))
        self.coin_label = text(48, 9, 300, 22, INK)
        self.time_label = text(0, 9, WIDTH - 16, 22, INK, "right")
        self.end_label = text(0, 130, WIDTH, 46, INK, "center")
        self.end_shadow = text(-2, 127, WIDTH, 46, CREAM, "center")
        self.hint_label = text(0, 190, WIDTH, 20, INK, "center")
        labels = (self.coin_label, self.time_label, self.end_label, self.end_shadow)
        for label in (*labels, self.hint_label):
            self.hud.AddGameNode(label)
        self.follow(1.0)

    def build_level(self):
        with open(os.path.join(FOLDER, "level.txt"), encoding="utf-8") as file:
            rows = file.read().split()
        self.level_width, self.level_height = TILE * len(rows[0]), TILE * len(rows)
        terrain = self.build_map(rows)
        terrain.Tile_Array[:] = [
            self.tile_at(rows, column, row)
            for row in range(len(rows))
            for column in range(len(rows[0]))
        ]
        # A map that is drawn crosses out what is blocked, for editors: a hidden one collides.
        self.walls = self.build_map(rows)
        self.walls.Tile_Array = terrain.Tile_Array
        self.walls.SetVisible(False)
        self.walls.UpdateTileCollision()
        for y, row in enumerate(rows):
            for x, letter in enumerate(row):
                self.place(letter, x * TILE, y * TILE)
        self.world.AddGameNode(self.player)

    def build_map(self, rows):
        made = Tessora.TiledMap(None)
        made.SetTiledMapInfo("tiles", len(rows), len(rows[0]), TILE, TILE, 0)
        made.SetTileVisible(False)
        self.world.AddGameNode(made)
        return made

    def tile_at(self, rows, column, row):
        def is_ground(x, y):
            return not 0 <= x < len(rows[0]) or rows[y][x] == "#"

        if rows[row][column] != "#":
            letter = LETTERS.get(rows[row][column])
            return TILES.index(letter) if letter else -1
        if is_ground(column, row - 1):
            return (column * column * 3 + row * 5 + column * row) % 7 % 3
        if not is_ground(column - 1, row):
            return TILES.index("grass_l.png")
        return TILES.index("grass.png" if is_ground(column + 1, row) else "grass_r.png")

    def place(self, letter, x, y):
        if letter == "o":
            coin = picture(x + 4, y + 4, [f"coin{number}.png" for number in (1, 2, 3, 4)], 0.12)
            self.coins.append(coin)
            self.world.AddGameNode(coin)
        elif letter == "e":
            self.beetles.append(Beetle(x, y + 4, self.walls))
            self.world.AddGameNode(self.beetles[-1])
        elif letter == "H":
            self.home = picture(x, y + TILE - 112, "home.png")
            self.world.AddGameNode(self.home)
        elif letter == "P":
            fox = Fox(x, y + TILE - FOX_HEIGHT)
            fox.OnLoad(self)
            fox.SetPlayer()
            self.set_keys(fox)
            self.safe = fox.GetXY()

    def set_keys(self, fox):
        for key, walk in ((pygame.K_RIGHT, fox.Move_Right), (pygame.K_LEFT, fox.Move_Left)):
            fox.SetKeyDownFunction(key, walk)
            fox.SetKeyUpFunction(key, fox.StopMove)
        fox.SetKeyDownFunction(pygame.K_SPACE, self.jump)
        fox.SetKeyDownFunction(pygame.K_RETURN, lambda: self.finished and self.start())

    def on_ground(self):
        return self.walls.checkCollision(self.player, 0, 1)[1]

    def jump(self):
        if self.on_ground() and not self.finished:
            self.player.Jump()
            play_sound("jump.wav")

    def handle_event(self, event):
        if event.type == pygame.QUIT:
            self.running = False
        elif event.type == pygame.KEYDOWN:
            self.world.OnKeyDownFunction(event.key)
        elif event.type == pygame.KEYUP:
            self.world.OnKeyUpFunction(event.key)

    def update(self, delay):
        delay = min(delay, LONGEST_STEP)
        if not self.finished:
            self.seconds += delay
        for layer in self.layers:
            layer.update(delay)
        self.move_player(delay)
        self.meet_things()
        self.follow(min(1.0, 6 * delay))
        self.coin_label.SetText(str(self.gathered))
        self.time_label.SetText(f"{self.seconds:.1f} s")

    def move_player(self, delay):
        fox, variable = self.player, self.player.GetCharacterBindingVar
        if self.finished:
            fox.StopMove()
        fox.dropSpeed += variable("gravity") * delay
        across = fox.moveDir[0] * variable("speed") * delay
        if move(self.walls, fox, across, fox.dropSpeed * delay)[1]:
            fox.StopJump()
        on_ground = self.on_ground()
        fox.show_movement(on_ground)
        if on_ground and fox.x > self.safe[0] + 15 * TILE:
            self.safe = fox.GetXY()
        if fox.y > self.level_height:
            self.hurt()

    def meet_things(self):
        fox = self.player
        for coin in [coin for coin in self.coins if fox.checkCollision(coin)]:
            self.coins.remove(coin)
            self.world.DelGameNode(coin.GetInstanceID())
            self.gathered += 1
            play_sound("coin.wav")
        for beetle in [beetle for beetle in self.beetles if fox.checkCollision(beetle)]:
            if fox.GetDropSpeed() > 0 and fox.y + FOX_HEIGHT < beetle.y + beetle.height:
                self.beetles.remove(beetle)
                self.world.DelGameNode(beetle.GetInstanceID())
                fox.Jump(-380)
                play_sound("stomp.wav")
            else:
                self.hurt()
                break
        if not self.finished and fox.checkCollision(self.home) and self.on_ground():
            self.finish()

    def hurt(self):
        self.player.SetXY(*self.safe)
        self.player.StopJump()
        self.gathered = max(0, self.gathered - 3)
        play_sound("hurt.wav")

    def finish(self):
        self.finished = True
        for label in (self.end_label, self.end_shadow):
            label.SetText("Home at last!")
        self.hint_label.SetText(
            f"{self.gathered} coins in {self.seconds:.1f} s - Return plays again"
        )
        play_sound("home.wav")

    def follow(self, share):
        """Bring the camera nearer to the player."""
        for layer, depth in ((self.world, 1.0), (self.hills, 0.4)):
            left = self.player.x - WIDTH * 0.42
            left = -max(0.0, min(self.level_width - WIDTH, left)) * depth
            layer.scrollPosX += (left - layer.scrollPosX) * share
            top = min(self.level_height - HEIGHT, max(0.0, self.player.y - HEIGHT * 0.6))
            top = -top if layer is self.world else -top * 0.15
            layer.scrollPosY += (top - layer.scrollPosY) * share

    def draw(self):
        for layer in self.layers:
            layer.draw(self.screen)


def main():
    if autoplay.is_wanted():
        autoplay.use_dummy_drivers()
    pygame.init()
    pygame.display.set_caption("The Way Home")
    game = Game(pygame.display.set_mode(SIZE))
    if autoplay.is_wanted():
        return autoplay.play(game)
    clock = pygame.time.Clock()
    while game.running:
        for event in pygame.event.get():
            game.handle_event(event)
        game.update(clock.tick(60) / 1000)
        game.draw()
        pygame.display.flip()


if __name__ == "__main__":
    main()
    pygame.quit()
