import pygame
import Tessora

pygame.init()
screen = pygame.display.set_mode((640, 480))
clock, layer = pygame.time.Clock(), Tessora.GameLayer()
me = Tessora.GUI_Image(None, 20, 190)
me.SetImage(pygame.image.load("me.png"))
me.RunAction(Tessora.MoveByAction(10, 500, 0))
me.SetPickDownFunction(lambda node: node.RunAction(Tessora.RotateByAction(1, 360)))
layer.AddGameNode(me)
while True:
    for event in pygame.event.get():
        if event.type == pygame.QUIT:
            raise SystemExit
        if event.type == pygame.MOUSEBUTTONDOWN:
            layer.OnPickDownFunction(*event.pos)
    layer.update(clock.tick(60) / 1000)
    screen.fill((40, 44, 92))
    layer.draw(screen)
    pygame.display.flip()
