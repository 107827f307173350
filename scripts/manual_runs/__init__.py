"""The runs of the program that the manual shows: the machines, the commands and what came of them."""
