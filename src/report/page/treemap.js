'use strict';

/**
 * Divides an area into one rectangle for each size (largest first, none of them 0), as square as
 * possible: squarified treemaps, after Bruls, Huizing and van Wijk, 2000. Returns
 * {x, y, width, height} for each size.
 */
function divide(sizes, {x, y, width, height}) {
    const rectangles = [];
    let rest = sizes.reduce((sum, size) => sum + size, 0);
    while (rectangles.length < sizes.length) {
        const scale = (width * height) / rest;
        const side = Math.min(width, height);
        const row = squarestRow(sizes, rectangles.length, side, scale);
        const rowSize = row.reduce((sum, size) => sum + size, 0);
        const thickness = side > 0 ? (rowSize * scale) / side : 0;
        const isColumn = width >= height;
        let along = isColumn ? y : x;
        for (const size of row) {
            const length = (size / rowSize) * side;
            const column = {x, y: along, width: thickness, height: length};
            const line = {x: along, y, width: length, height: thickness};
            rectangles.push(isColumn ? column : line);
            along += length;
        }
        if (isColumn) {
            x += thickness;
            width = Math.max(0, width - thickness);
        } else {
            y += thickness;
            height = Math.max(0, height - thickness);
        }
        rest -= rowSize;
    }
    return rectangles;
}

/** The sizes from `first` on that share a row best: one more would make the rectangles thinner. */
function squarestRow(sizes, first, side, scale) {
    let sum = 0;
    let best = Infinity;
    let end = first;
    for (; end < sizes.length; ++end) {
        sum += sizes[end];
        const largest = sizes[first];
        const smallest = sizes[end];
        const square = (sum * scale) ** 2;
        const stretched = side ** 2 * scale;
        const ratio = Math.max((stretched * largest) / square, square / (stretched * smallest));
        if (ratio > best) {
            break;
        }
        best = ratio;
    }
    return sizes.slice(first, Math.max(end, first + 1));
}
