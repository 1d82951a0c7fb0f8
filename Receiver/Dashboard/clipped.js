// Long texts: the beginning at once, the rest when asked for, so that no report can hang the page.

import {el, fill} from './dom.js';
import {integer} from './format.js';

/// At most so many characters, and so many lines.
export function clippedText(tag, text, maximum, mostLines = Infinity) {
    const element = el(tag, {dir: 'auto'});
    const length = Math.min(maximum, endOfLine(text, mostLines));
    if (text.length <= length)
        return fill(element, text);
    const isCutInLine = length === maximum;
    const more = el('button.small', {type: 'button', onclick: () => {
        more.remove();
        element.textContent = text;
        element.tabIndex = Math.max(-1, element.tabIndex); // what keys can reach stays so
        element.focus({preventScroll: true});
    }}, `Show all ${isCutInLine ? `${integer(text.length)} characters` : `${integer(text.split('\n').length)} lines`}`);
    fill(element, text.slice(0, length), isCutInLine ? '… ' : '');
    return el('.clipped', element, more);
}

function endOfLine(text, count) {
    let end = -1;
    for (let line = 0; line < count; line++) {
        end = text.indexOf('\n', end + 1);
        if (end < 0)
            return text.length;
    }
    return end;
}

/// The first rows at once, the others behind a button.
export function clippedRows(body, items, build, maximum) {
    const columns = body.parentElement?.querySelectorAll('th').length || 1;
    body.append(...items.slice(0, maximum).flatMap(build));
    if (items.length <= maximum)
        return;
    const row = el('tr', el('td', {colspan: columns}, el('button.small.show-rest', {type: 'button', onclick: () => {
        const rest = items.slice(maximum).flatMap(build);
        row.replaceWith(...rest);
        rest[0].tabIndex = -1;
        rest[0].focus({preventScroll: true});
    }}, `Show all ${integer(items.length)}`)));
    body.append(row);
}
