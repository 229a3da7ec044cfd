"""Particles and their emitter in plain Python, without drawing: what the engine must reproduce."""

import math
import random

import pygame
from pygame.math import Vector2

PARTS = "rgba"


def part_of(color, name):
    return color if color == "Begin" else getattr(color, name)


class Particle:
    def __init__(self, parent, x=0, y=0):
        self.parent, self.x, self.y = parent, x, y
        self.width = self.height = 100
        self.angle = 0.0
        self.bgColor = pygame.Color(255, 255, 255, 255)
        self.blendtype = pygame.BLEND_MULT
        self.BeginLife, self.Attenuation, self.CurrLife = 100, 10, 100
        self.BeginSize, self.EndSize, self.BeginAngle, self.EndAngle = 20, 20, 0, 0
        self.BeginColor = pygame.Color(255, 255, 255, 255)
        self.EndColor = pygame.Color(0, 0, 0, 0)
        self.lifeProgress = 0
        self.Direction = Vector2(0, 0)
        self.RadialAccel = self.TangentialAccel = 0.0
        self.BeginRadius, self.EndRadius = 0, 100
        self.RotateValue, self.RotateSpeed = 0.0, 500.0
        self.ParticleMode = None

    def IsDead(self):
        return self.CurrLife <= 0.0

    def over_life(self, begin, end):
        return begin if end == "Begin" else begin + (end - begin) * self.lifeProgress

    def update(self, delay):
        self.CurrLife -= self.Attenuation * delay
        if self.IsDead():
            return
        self.lifeProgress = 1.0 - self.CurrLife / self.BeginLife
        self.width = self.height = self.over_life(self.BeginSize, self.EndSize)
        parts = []
        for name in PARTS:
            begin, end = getattr(self.BeginColor, name), part_of(self.EndColor, name)
            way = 0 if end == "Begin" else int((end - begin) * self.lifeProgress)
            parts.append(begin + way)
        self.bgColor = pygame.Color(*parts)
        self.angle = self.over_life(self.BeginAngle, self.EndAngle)

    def UpdateGravity(self, delay, gravity):
        place, radial = Vector2(self.x, self.y), Vector2(0, 0)
        if place.x != 0 or place.y != 0:
            radial = place.normalize()
        tangential = Vector2(-radial.y, radial.x)
        radial = Vector2(radial.x * self.RadialAccel, radial.y * self.RadialAccel)
        across = self.TangentialAccel
        tangential = Vector2(tangential.x * across, tangential.y * across)
        pull = radial + tangential + gravity
        self.Direction = self.Direction + Vector2(pull.x * delay, pull.y * delay)
        self.x = self.x + self.Direction.x * delay
        self.y = self.y + self.Direction.y * delay

    def UpdateCircle(self, delay):
        self.RotateValue = self.RotateValue + self.RotateSpeed * delay
        angle = math.radians(self.RotateValue)
        radius = self.over_life(self.BeginRadius, self.EndRadius)
        self.x = -math.cos(angle) * radius
        self.y = -math.sin(angle) * radius


class ParticleEmitter:
    """Takes its parameters over from another emitter."""

    def __init__(self, model):
        vars(self).update(vars(model))
        self.children, self.ParticleArray = [], []

    def RandomAB(self, a, b):
        return a + (b - a) * random.random()

    def around(self, base, variance):
        return base + variance * self.RandomAB(-1, 1)

    def end_around(self, name):
        end, variance = getattr(self, "End" + name), getattr(self, "End" + name + "Var")
        if end == "Begin":
            return end
        variance = getattr(self, "Begin" + name + "Var") if variance == "Begin" else variance
        return self.around(end, variance)

    def Clamp(self, value, least, most):
        return least if value < least else most if value > most else value

    def color(self, middle, variance):
        if middle == "Begin":
            return middle
        parts = []
        for name in PARTS:
            reach = self.BeginColorVar if variance == "Begin" else variance
            way = int(getattr(reach, name) * self.RandomAB(-1, 1))
            parts.append(self.Clamp(getattr(middle, name) + way, 0, 255))
        return pygame.Color(*parts)

    def initParticle(self, p):
        p.BeginLife = p.CurrLife = self.Clamp(self.around(self.Life, self.LifeVar), 0, 100)
        p.BeginSize = self.Clamp(self.around(self.BeginSize, self.BeginSizeVar), 0.0001, 255)
        p.EndSize = self.end_around("Size")
        if p.EndSize != "Begin":
            p.EndSize = self.Clamp(p.EndSize, 0.0001, 255)
        p.BeginAngle = self.around(self.BeginAngle, self.BeginAngleVar)
        p.EndAngle = self.end_around("Angle")
        p.BeginColor = self.color(self.BeginColor, self.BeginColorVar)
        p.EndColor = self.color(self.EndColor, self.EndColorVar)
        p.x = self.around(self.ParticleX, self.ParticleXVar)
        p.y = self.around(self.ParticleY, self.ParticleYVar)
        p.blendtype, p.ParticleMode = self.blendtype, self.ParticleMode
        angle = math.radians(self.around(self.Direction, self.DirectionVar))
        if self.ParticleMode == "Gravity":
            speed = self.around(self.Speed, self.SpeedVar)
            p.Direction = Vector2(math.cos(angle), math.sin(angle)) * speed
            p.RadialAccel = self.around(self.Radialaccel, self.RadialaccelVar)
            p.TangentialAccel = self.around(self.Tangentialaccel, self.TangentialaccelVar)
        else:
            p.BeginRadius = self.around(self.BeginRadius, self.BeginRadiusVar)
            p.EndRadius = self.end_around("Radius")
            p.RotateSpeed = self.around(self.RotateSpeed, self.RotateSpeedVar)
            p.RotateValue = angle

    def AddParticle(self):
        if self.ParticleCount == self.ParticleTotal:
            return
        particle = Particle(self)
        self.initParticle(particle)
        self.ParticleArray.append(particle)
        self.ParticleCount += 1

    def update(self, delay):
        if self.running:
            rate = 1.0 / self.EmissionRate
            if self.ParticleCount < self.ParticleTotal:
                self.EmitCounter += delay
            while self.ParticleCount < self.ParticleTotal and self.EmitCounter > rate:
                self.AddParticle()
                self.EmitCounter -= rate
            self.LifeTime += delay
            if self.Duration != -1 and self.LifeTime >= self.Duration:
                self.running = False
        for particle in self.ParticleArray:
            particle.update(delay)
            if self.ParticleMode == "Gravity":
                particle.UpdateGravity(delay, self.Gravity)
            else:
                particle.UpdateCircle(delay)

    def remove_dead(self):
        self.ParticleArray = [p for p in self.ParticleArray if not p.IsDead()]
        self.ParticleCount = len(self.ParticleArray)
