"""How fast the engine is: each figure against a baseline measured in the same run."""
