"""The parts of make-sample-machine.py: two small Windows machines held in folders."""
