# What the engine imports: PyInstaller cannot look into compiled modules.
hiddenimports = """
    copy glob json math pygame.locals pygame.math pygame.sysfont random threading time warnings
    xml.etree.ElementTree
""".split()
