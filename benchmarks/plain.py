"""The engine's nodes, layer and actions as a straightforward Python class hierarchy.

What the engine is compared with: the same attributes set in the same order, the same calls of
methods, the same calls of pygame. Nothing is slowed down on purpose, nothing is clever.
"""

# Flags are compared by equality, as the engine's interface has it.
# ruff: noqa: E711, E712

import pygame

BorderColor = [255, 0, 0]
GUI_WINDOW_BGCOLOR = pygame.Color(128, 128, 128, 128)


class GameNode:
    def __init__(self, parent, x=0, y=0):
        self.NodeType = "GameNode"
        self.sceneInstance = None
        self.parent = parent
        self.children = []
        self.sortIndex = 0
        if parent:
            scene = parent.GetSceneInstance()
            if scene:
                self.OnLoad(scene)
            parent.AddChild(self)
        self.KeyDownFunctionDict = {}
        self.KeyUpFunctionDict = {}
        self.BindingVarArray = {}
        self.BindingEventArray = {}
        self.BindingPointArray = {}
        self.InnerBindingEventArray = {
            "Load": [None, [], []],
            "Update": [None, [], []],
            "Render": [None, [], []],
            "Destroy": [None, [], []],
            "PickDown": [None, ["px", "py"], []],
            "PickUp": [None, ["px", "py"], []],
        }
        self.PickDownFunction = None
        self.Enable_PickDown = True
        self.PickUpFunction = None
        self.Enable_PickUp = True
        self.UpdateFunction = None
        self.x = x
        self.y = y
        self.sx = 1.0
        self.sy = 1.0
        self.angle = 0.0
        self.width = 0
        self.height = 0
        self.anchorx = 0.0
        self.anchory = 0.0
        self.instanceID = -1
        self.visible = True
        self.ActionPlayer = None
        self.rectvisible = False
        self.anchorvisible = False
        self.lock_xysa = False
        self.WSX = 1.0
        self.WSY = 1.0
        self.WAngle = 0.0
        self.WX = 0.0
        self.WY = 0.0
        self.clicked = False
        self.CheckPickDownChild = True
        self.collisionType = -1
        self.collisionInfo = None
        self.editrectenable = False
        self.editrectvisible = False
        self.dragcornerindex = -2
        self.dragbegin_x = -1
        self.dragbegin_y = -1
        self.focusIn = False
        self.userData = None

    def GetX(self):
        return self.x

    def SetX(self, x):
        self.x = x

    def GetXY(self):
        return (self.x, self.y)

    def SetXY(self, x, y):
        self.x = x
        self.y = y

    def IsVisible(self):
        return self.visible

    def SetVisible(self, v):
        self.visible = v

    def SetSortIndex(self, i):
        self.sortIndex = i

    def GetSceneInstance(self):
        return self.sceneInstance

    def SetInstanceID(self, i):
        self.instanceID = i

    def AddChild(self, child):
        child.SetSortIndex(len(self.children))
        self.children.append(child)

    def OnLoad(self, sceneInstance):
        self.sceneInstance = sceneInstance
        for child in self.children:
            child.OnLoad(sceneInstance)

    def GetAXW(self):
        return self.anchorx * self.width

    def GetAYH(self):
        return self.anchory * self.height

    def GetWPX(self):
        return self.parent.GetWX() if self.parent != None else 0.0

    def GetWPY(self):
        return self.parent.GetWY() if self.parent != None else 0.0

    def GetWX(self):
        if self.lock_xysa == True:
            return self.WX
        return self.GetWPX() + self.x - self.GetAXW() * self.sx

    def GetWY(self):
        if self.lock_xysa == True:
            return self.WY
        return self.GetWPY() + self.y - self.GetAYH() * self.sy

    def GetWPSX(self):
        return self.parent.GetWSX() if self.parent != None else 1.0

    def GetWPSY(self):
        return self.parent.GetWSY() if self.parent != None else 1.0

    def GetWSX(self):
        if self.lock_xysa == True:
            return self.WSX
        return self.GetWPSX() * self.sx

    def GetWSY(self):
        if self.lock_xysa == True:
            return self.WSY
        return self.GetWPSY() * self.sy

    def GetWPAngle(self):
        return self.parent.GetWAngle() if self.parent != None else 0.0

    def GetWAngle(self):
        if self.lock_xysa == True:
            return self.WAngle
        return self.GetWPAngle() + self.angle

    def draw(self, screen, offsetX=0, offsetY=0, scale=1.0):
        if self.IsVisible() == True:
            self.draw_begin(offsetX, offsetY, scale)
            self.drawsize(screen)
            self.drawAnchor(screen, scale)
            self.drawDragRect(screen, 6, self.dragcornerindex)
            self.draw_children(screen, offsetX, offsetY, scale)
            if self.sceneInstance != None:
                self.CallInnerEvent("Render")

    def draw_begin(self, offsetX=0, offsetY=0, scale=1.0):
        if self.lock_xysa == False:
            self.WSX = self.GetWSX() * scale
            self.WSY = self.GetWSY() * scale
            self.WAngle = self.GetWAngle()
            self.WX = self.GetWX() * scale + offsetX
            self.WY = self.GetWY() * scale + offsetY

    def draw_children(self, screen, offsetX=0, offsetY=0, scale=1.0):
        for child in self.children:
            if child.IsVisible() == True:
                child.draw(screen, offsetX, offsetY, scale)

    def drawsize(self, screen):
        if self.rectvisible == True:
            pygame.draw.rect(screen, BorderColor, self.drawn_rect(), 1)

    def drawAnchor(self, screen, scale=1.0):
        if self.anchorvisible == True:
            x = self.WX + self.anchorx * self.width * self.WSX
            y = self.WY + self.anchory * self.height * self.WSY
            arm = 5.0 * scale
            pygame.draw.line(screen, BorderColor, (x - arm, y), (x + arm, y))
            pygame.draw.line(screen, BorderColor, (x, y - arm), (x, y + arm))

    def drawDragRect(self, screen, size, dragcornerindex):
        if self.editrectvisible == True:
            pygame.draw.rect(screen, BorderColor, self.drawn_rect(), 1)

    def drawn_rect(self):
        return pygame.Rect(self.WX, self.WY, self.width * self.WSX, self.height * self.WSY)

    def CallInnerEvent(self, eventName, params=None):
        entry = self.InnerBindingEventArray.get(eventName)
        if entry != None and entry[0] != None and self.sceneInstance != None:
            method = getattr(self.sceneInstance, "on_" + entry[0], None)
            if method != None:
                return method(**params) if params else method()
        return None

    def update(self, delay):
        for child in self.children:
            child.update(delay)
        if self.ActionPlayer != None:
            self.ActionPlayer.update(delay)
        if self.UpdateFunction != None:
            self.UpdateFunction(delay)

    def RunAction(self, *actions):
        if self.ActionPlayer == None:
            self.ActionPlayer = ActionPlayer()
            self.ActionPlayer.SetTarget(self)
        self.ActionPlayer.CleanUp()
        self.ActionPlayer.AddActions(actions)
        self.ActionPlayer.Run()

    def OnPickDownFunction(self, x, y):
        if self.IsVisible() != True:
            return None
        for child in reversed(self.children):
            taker = child.OnPickDownFunction(x, y)
            if taker != None:
                return taker if self.CheckPickDownChild == True else self
        if self.Enable_PickDown == True:
            self.dragcornerindex = self.checkDragRect(x, y)
            if self.dragcornerindex >= 0:
                self.dragbegin_x = x
                self.dragbegin_y = y
                return self
            if self.drawn_rect().collidepoint(x, y):
                print("collidepoint")
                if self.PickDownFunction != None:
                    self.PickDownFunction(self)
                self.clicked = True
                return self
        return None

    def checkDragRect(self, x, y):
        if self.editrectenable != True:
            return -2
        box = self.drawn_rect()
        columns = (box.left, box.centerx - 3, box.right - 6)
        rows = (box.top, box.centery - 3, box.bottom - 6)
        for index in range(9):
            if pygame.Rect(columns[index % 3], rows[index // 3], 6, 6).collidepoint(x, y):
                return index
        return -2


class GameLayer:
    def __init__(self):
        self.sceneInstance = None
        self.GameNodeDict = {}
        self.SortGameNodeInstanceIDArray = []
        self.GameNodeKeyArray = []
        self.AddGameNodeDict = {}
        self.DelGameNodeArray = []
        self.PointArray = []
        self.LineArray = []
        self.RectArray = []
        self.instanceID = 0
        self.visible = True
        self.scrollType = 0
        self.scrollPosX = 0
        self.scrollPosY = 0

    def IsVisible(self):
        return self.visible

    def OnLoad(self, scene):
        self.sceneInstance = scene
        self.GameNodeKeyArray = list(self.GameNodeDict.keys())
        for key in self.GameNodeKeyArray:
            self.GameNodeDict[key].OnLoad(scene)

    def AddGameNode(self, GameNode, immMode=True):
        self.GameNodeDict[self.instanceID] = GameNode
        GameNode.SetInstanceID(self.instanceID)
        GameNode.OnLoad(self.sceneInstance)
        self.SortGameNodeInstanceIDArray.append(self.instanceID)
        self.instanceID += 1
        return self.instanceID - 1

    def update(self, delay):
        if self.IsVisible() != True:
            return
        if len(self.GameNodeDict) > 0:
            self.GameNodeKeyArray = list(self.GameNodeDict.keys())
            for key in self.GameNodeKeyArray:
                self.GameNodeDict[key].update(delay)
        if len(self.DelGameNodeArray) > 0:
            for number in self.DelGameNodeArray:
                self.GameNodeDict.pop(number)
                self.SortGameNodeInstanceIDArray.remove(number)
            self.DelGameNodeArray = []

    def draw(self, screen):
        if self.IsVisible() != True:
            return
        for number in self.SortGameNodeInstanceIDArray:
            self.GameNodeDict[number].draw(screen, self.scrollPosX, self.scrollPosY, 1.0)

    def OnPickDownFunction(self, x, y):
        if self.IsVisible() == True and len(self.GameNodeDict) > 0:
            self.GameNodeKeyArray = list(self.GameNodeDict.keys())
            for key in self.GameNodeKeyArray:
                self.GameNodeDict[key].OnPickDownFunction(x, y)


class GAction:
    def __init__(self):
        self.running = False
        self.targetNode = None
        self.runtime = 0
        self.over = False

    def SetTarget(self, targetNode):
        self.targetNode = targetNode

    def Run(self):
        self.running = True
        self.runtime = 0
        self.over = False

    def IsOver(self):
        return self.over

    def update(self, delay):
        if self.running == True and self.over == False:
            self.runtime = self.runtime + delay


class ActionPlayer(GAction):
    def __init__(self):
        self.ActionArray = None
        self.ActionIndex = 0

    def AddActions(self, *groups):
        self.ActionArray = groups
        for group in self.ActionArray:
            for action in group:
                action.SetTarget(self.targetNode)

    def CleanUp(self):
        self.ActionArray = None

    def Run(self):
        if self.targetNode == None:
            return
        if len(self.ActionArray) > 0:
            self.ActionIndex = 0
            self.ActionArray[0][self.ActionIndex].Run()
        GAction.Run(self)

    def update(self, delay):
        if self.targetNode != None and self.running == True and self.over == False:
            GAction.update(self, delay)
            if self.ActionArray != None:
                action = self.ActionArray[0][self.ActionIndex]
                action.update(delay)
                if action.IsOver() == True:
                    self.ActionIndex = self.ActionIndex + 1
                    if self.ActionIndex >= len(self.ActionArray[0]):
                        self.over = True
                    else:
                        self.ActionArray[0][self.ActionIndex].Run()


class MoveToAction(GAction):
    def __init__(self, duration, x, y):
        GAction.__init__(self)
        self.duration = duration
        self.srcPostion = pygame.math.Vector2(0, 0)
        self.dstPostion = pygame.math.Vector2(x, y)

    def Run(self):
        if self.targetNode != None:
            self.srcPostion = pygame.math.Vector2(self.targetNode.GetWX(), self.targetNode.GetWY())
            GAction.Run(self)

    def update(self, delay):
        if self.targetNode != None and self.running == True and self.over == False:
            GAction.update(self, delay)
            t = 1.0
            if self.duration > 0.0:
                t = self.runtime / self.duration
            if t >= 1.0:
                self.targetNode.SetXY(self.dstPostion.x, self.dstPostion.y)
                self.over = True
            else:
                p = self.srcPostion.lerp(self.dstPostion, t)
                self.targetNode.SetXY(p.x, p.y)
