#!/bin/sh
# Plays an iterative solver that prints no markers. With the argument "quiet" it has no errors.
echo "solving dipôle.nec"
for i in 1 2 3 4; do
    echo "iteration $i of 4, residual 1e-$i"
done
echo "warning: the segments are long"
[ "$1" = quiet ] || echo "no licence for the far field" >&2
