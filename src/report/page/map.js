'use strict';

const paper = {
    width: 700,
    height: 340
}; // Pixels: the size of #rectangles in print.
const titleHeight = 20;
const shortestName = 56; // Pixels: a narrower rectangle would show only the beginning of a name.
const frameEdge = 2;
const smallestArea =
    80; // Square pixels: nobody could hit less, so smaller ones share one rectangle.
const smallestInside = 12; // Pixels: a folder with less room is drawn as one rectangle.

/** The children of a folder that get a rectangle, largest first; the smallest ones share one. */
function drawnChildren(folder, area) {
    const children = [...folder.children.values()].sort((a, b) => b.size - a.size);
    const total = children.reduce((sum, child) => sum + Math.max(child.size, 1), 0);
    const isSmall = (child) => (Math.max(child.size, 1) * area) / total < smallestArea;
    const firstSmall = children.findIndex(isSmall);
    if (firstSmall < 0 || firstSmall + 1 === children.length) {
        return children;
    }
    const drawn = children.slice(0, firstSmall);
    drawn.push(together(children.slice(firstSmall)));
    return drawn.sort((a, b) => b.size - a.size);
}

/** Stands for files and folders that are too small to draw. It has no path. */
function together(nodes) {
    const made = {name: counted(nodes.length, 'smaller one'), ...noTotals()};
    nodes.forEach((node) => addUp(made, node));
    return made;
}

/** Calls `draw` with each child of a folder and its box. */
function layOut(folder, box, draw) {
    const children = drawnChildren(folder, box.width * box.height);
    const sizes = children.map((child) => Math.max(child.size, 1));
    divide(sizes, box).forEach((part, i) => draw(children[i], part));
}

function inside({x, y, width, height}, top) {
    return {
        x: x + frameEdge,
        y: y + top,
        width: Math.max(0, width - 2 * frameEdge),
        height: Math.max(0, height - top - frameEdge),
    };
}

/** Places an element in per cent of the box around it, since paper may be wider or narrower. */
function put(made, box, around) {
    made.style.left = (100 * (box.x - around.x)) / around.width + '%';
    made.style.top = (100 * (box.y - around.y)) / around.height + '%';
    made.style.width = (100 * box.width) / around.width + '%';
    made.style.height = (100 * box.height) / around.height + '%';
    return made;
}

/** Draws the contents of a folder into its frame, nested as deep as there is room. */
function fillFrame(frame, frameBox, folder, box) {
    const draw = (className, part) => {
        frame.append(put(element('span', {className}), part, frameBox));
    };
    if (box.width < smallestInside || box.height < smallestInside) {
        draw(folder.state, box);
        return;
    }
    layOut(firstFork(folder), box, (child, part) => {
        if (child.children) {
            fillFrame(frame, frameBox, child, inside(part, frameEdge));
        } else {
            draw(child.state, part);
        }
    });
}

/**
 * The picture of the site: the rectangles of one folder. Choosing one calls `choose` with the path
 * of the folder or file.
 */
class SiteMap {
    constructor(choose) {
        this.choose = choose;
        this.folder = site;
        this.chosen = '';
        this.area = document.getElementById('rectangles');
        this.area.addEventListener('keydown', (event) => this.#key(event));
        new ResizeObserver(() => this.#draw()).observe(this.area);
        addEventListener('beforeprint', () => this.#draw(paper));
        addEventListener('afterprint', () => this.#draw());
    }

    /** Shows a folder, or the folder of a file. */
    show(path) {
        const left = this.folder.path;
        const hadFocus = this.area.contains(document.activeElement);
        this.chosen = path;
        this.folder = firstFork(folderAt(path));
        this.#draw();
        if (hadFocus && left !== this.folder.path) {
            const drawn = this.#drawn();
            this.#focus(drawn.find((made) => made.dataset.path === left) ?? drawn[0]);
        }
    }

    #drawn() {
        return [...this.area.children];
    }

    #draw({width, height} = {width: this.area.clientWidth, height: this.area.clientHeight}) {
        const hadFocus = this.area.contains(document.activeElement);
        const focused = hadFocus ? document.activeElement.dataset.path : this.chosen;
        const box = {x: 0, y: 0, width, height};
        const drawn = [];
        layOut(this.folder, box, (node, part) => {
            drawn.push(put(this.#rectangle(node, part), part, box));
        });
        this.area.replaceChildren(...drawn);
        const same = drawn.find((made) => made.dataset.path === focused) ?? drawn[0];
        if (same) {
            same.tabIndex = 0;
        }
        if (hadFocus) {
            same?.focus();
        }
    }

    #rectangle(node, box) {
        const name = node.name + (node.children ? '/' : '');
        const title = plain(name) + ': ' + descriptionOf(node);
        const made = element('button', {type: 'button', title, 'aria-label': title, tabIndex: -1});
        made.className = node.children ? 'frame' : 'file ' + node.state;
        made.dataset.path = node.path ?? '';
        made.addEventListener('click', () => this.#press(node));
        if (box.width > shortestName && box.height > titleHeight) {
            made.append(element('span', {className: 'name'}, shown(name)));
        }
        if (node.children) {
            fillFrame(made, box, node, inside(box, titleHeight));
        }
        if (node.path && node.path === this.chosen) {
            made.setAttribute('aria-current', 'true');
        }
        return made;
    }

    /** A press on what is too small to draw opens the table, which lists it. */
    #press(node) {
        if (node.path === undefined) {
            document.getElementById('contents').open = true;
            document.querySelector('#contents summary').focus();
        } else {
            this.choose(node.path);
        }
    }

    #key(event) {
        const drawn = this.#drawn();
        const steps = {ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1};
        const ends = {Home: 0, End: drawn.length - 1};
        const to = ends[event.key] ?? drawn.indexOf(document.activeElement) + steps[event.key];
        if (drawn[to]) {
            event.preventDefault();
            this.#focus(drawn[to]);
        } else if (event.key === 'Backspace' && this.chosen !== '') {
            event.preventDefault();
            this.choose(pathAbove(this.chosen));
        }
    }

    /** Tab reaches one rectangle only; the arrow keys lead to the others. */
    #focus(made) {
        for (const other of this.area.children) {
            other.tabIndex = other === made ? 0 : -1;
        }
        made?.focus();
    }
}
