// The headers that are compiled once for all tests need a program to be compiled for: this one.
