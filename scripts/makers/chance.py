"""Choices that depend on a seed alone."""


class ByChance:
    """One who decides by the numbers of a random.Random."""

    def __init__(self, random):
        self.random = random

    def often(self, probability):
        return self.random.random() < probability

    def one(self, choices):
        return self.random.choice(choices)
