# What the engine imports: PyInstaller cannot look into compiled modules.
hiddenimports = """
    copy glob json math random threading time warnings xml.etree.ElementTree
    pygame.locals pygame.math pygame.sysfont
""".split()
