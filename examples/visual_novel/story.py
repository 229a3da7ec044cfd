"""The story: scenes by name, each a list of steps that the game takes one after another.

("place", picture)                  fade to another place
("enter", who, side)                a portrait comes in, "left" or "right"
("leave", who)
("say", who, mood, text)            who is None for the teller
("ask", {answer: scene, ...})       buttons; the story goes on in the scene chosen
("light",)                          the beam of the lighthouse begins to turn
("end", title)                      an ending, then back to the menu
"""

NAMES = {"mira": "Mira", "tobin": "Tobin"}

STORY = {
    "start": [
        ("place", "beach.png"),
        ("say", None, "", "Low tide. The beach is empty, but for a green bottle in the foam."),
        ("enter", "mira", "left"),
        ("say", "mira", "startled", "There is a letter in it!"),
        ("say", "mira", "calm", "\"Whoever finds this: the lamp must not go out tonight.\""),
        ("enter", "tobin", "right"),
        ("say", "tobin", "stern", "That is my hand. I threw it into the sea forty years ago."),
        ("say", "mira", "startled", "Forty years! Whom was it for?"),
        ("say", "tobin", "sad", "For anyone with dry matches. My brother was out there in the fog, "
         "and I had none."),
        ("say", "tobin", "stern", "He came home two days late and never let me forget it."),
        ("ask", {"Let us light it tonight": "tower", "Keep the letter and go": "alone"}),
    ],
    "tower": [
        ("place", "tower.png"),
        ("enter", "tobin", "right"),
        ("say", "tobin", "glad", "Two hundred steps. They grow in number every year."),
        ("enter", "mira", "left"),
        ("say", "mira", "calm", "The lens is grey with dust. And here are only three matches."),
        ("ask", {"Clean the lens first": "clean", "Strike a match at once": "hasty"}),
    ],
    "clean": [
        ("say", "mira", "glad", "There is a moth asleep in it. Move over, you."),
        ("say", "tobin", "glad", "Now. Gently, and shield the flame."),
        ("place", "night.png"),
        ("light",),
        ("say", None, "", "The beam goes out over the water, for the first time in forty years."),
        ("enter", "mira", "left"),
        ("say", "mira", "startled", "Look! Far out, somebody answers with a lantern."),
        ("say", "mira", "glad", "They must have thought that we would never ask."),
        ("end", "The long answer"),
    ],
    "hasty": [
        ("say", "mira", "startled", "Out. And out. The draught takes them all!"),
        ("say", "tobin", "glad", "Never mind. Now you know how it was."),
        ("say", "tobin", "glad", "Tomorrow we bring a whole box, and a broom."),
        ("end", "Three matches"),
    ],
    "alone": [
        ("leave", "mira"),
        ("say", "tobin", "sad", "She has quick feet. So had I."),
        ("place", "night.png"),
        ("say", None, "", "At night she sits at her window and looks at the dark tower."),
        ("enter", "mira", "left"),
        ("say", "mira", "calm", "Tomorrow. I shall ask him to show me the stairs tomorrow."),
        ("end", "A dark window"),
    ],
}  # fmt: skip
