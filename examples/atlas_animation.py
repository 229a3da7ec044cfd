"""Frames from a property-list atlas: animations, single frames, mirrors and tints."""

import Tessora
from example_window import FONT, run


def animated(layer, x, y, animation, delay=None):
    """A widget whose frames the atlas holds, in the order that the animation gives."""
    image = Tessora.GUI_Image(None, x, y)
    image.LoadImageFramesPList("sprites.plist")
    image.LoadAnimationPlist("animations.plist", animation)
    if delay is not None:
        image.SetSwitchImageDelay(delay)
    image.SetAutoSwitch(True)
    image.AutoImageSize(True)
    image.SetImageAnchor("center")
    layer.AddGameNode(image)
    return image


def caption(layer, x, y, text):
    label = Tessora.GUI_Label(None, x, y, text, FONT, 15)
    label.SetWidth(140)
    label.SetHeight(20)
    label.SetImageAnchor("center")
    label.SetStyle("hollow", False)
    label.SetTextColor(255, 244, 222)
    layer.AddGameNode(label)


def build(layer):
    star = animated(layer, 100, 90, "star")
    caption(layer, 100, 150, "star")
    animated(layer, 250, 90, "comet")
    caption(layer, 250, 150, "comet (turned frames)")
    animated(layer, 400, 90, "grump", delay=0.4)
    caption(layer, 400, 150, "0.4 s a frame")
    burst = animated(layer, 550, 90, "burst")
    burst.SetBlendType("ADD")
    caption(layer, 550, 150, "added light")

    mirror = Tessora.GUI_Image(None, 100, 260)
    mirror.UseImage(star, True)
    mirror.SetImageAnchor("center")
    mirror.SetSXY(1.4, 1.4)
    layer.AddGameNode(mirror)
    caption(layer, 100, 345, "mirrors the star")

    still = animated(layer, 250, 260, "star")
    still.SetAutoSwitch(False)
    still.SwitchImage(12)
    caption(layer, 250, 345, "one frame")

    tinted = animated(layer, 400, 260, "star")
    tinted.SetBGColor(140, 220, 255)
    caption(layer, 400, 345, "tinted")

    faded = animated(layer, 550, 260, "grump")
    faded.alpha = 110
    faded.SetAngle(30)
    caption(layer, 550, 345, "faded and turned")


if __name__ == "__main__":
    run("atlas_animation", build)
