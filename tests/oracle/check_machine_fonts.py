#!/usr/bin/env python3
"""Indexes the machine's own fonts in a home of its own and compares every face with what fontTools reads.
Usage: check_machine_fonts.py KERLUNE"""
