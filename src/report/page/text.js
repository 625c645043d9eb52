'use strict';

// Invisible characters: a name with one is another name. Those that control a text come escaped.
const hiddenSigns = /[\u00ad\u200b\u2028\u2029\u2060\ufeff]/g;

/**
 * Makes an element. Children are nodes, or strings, which become text: names and references of the
 * site must never become markup.
 */
function element(name, properties = {}, ...children) {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(properties)) {
        if (key in made) {
            made[key] = value;
        } else {
            made.setAttribute(key, value);
        }
    }
    made.append(...children);
    return made;
}

/** Puts a text of the site into an element whose writing direction affects nothing around it. */
function shown(text, className = '') {
    const made = element('bdi', {className});
    let end = 0;
    for (const sign of text.matchAll(hiddenSigns)) {
        made.append(text.slice(end, sign.index), hiddenSign(sign[0]));
        end = sign.index + sign[0].length;
    }
    made.append(text.slice(end));
    return made;
}

function hiddenSign(sign) {
    const code = sign.codePointAt(0).toString(16).toUpperCase().padStart(4, '0');
    return element('span', {className: 'hidden-sign'}, 'U+' + code);
}

/** The same for attributes, which hold no elements. */
function plain(text) {
    return text.replace(hiddenSigns, (sign) => hiddenSign(sign).textContent);
}

/** A table with a name for screen readers; columns are [class, title]. */
function newTable(name, columns, body) {
    const heads =
        columns.map(([className, title]) => element('th', {scope: 'col', className}, title));
    const head = element('thead', {}, element('tr', {}, ...heads));
    return element('table', {'aria-label': name}, head, body);
}

/** "1 error", "41,000 errors" */
function counted(number, one, many = one + 's') {
    return number.toLocaleString('en') + ' ' + (number === 1 ? one : many);
}

/** A number of bytes in the unit that keeps it short: "12.3 kB". */
function sizeOf(bytes) {
    const units = ['bytes', 'kB', 'MB', 'GB', 'TB'];
    let unit = 0;
    while (bytes >= 1000 && unit + 1 < units.length) {
        bytes /= 1000;
        ++unit;
    }
    const digits = unit > 0 && bytes < 100 ? 1 : 0;
    return bytes.toLocaleString('en', {maximumFractionDigits: digits}) + ' ' + units[unit];
}

function byText(a, b) {
    return a < b ? -1 : a > b ? 1 : 0;
}
