// Long texts: the beginning at once, the rest when asked for, so that no report can hang the page.

import {el, fill} from './dom.js';
import {integer} from './format.js';

export function clippedText(tag, text, maximum) {
    const element = el(tag, {dir: 'auto'});
    if (text.length <= maximum)
        return fill(element, text);
    const more = el('button.small', {type: 'button', onclick: () => {
        more.remove();
        element.textContent = text;
        element.tabIndex = -1;
        element.focus({preventScroll: true});
    }}, `Show all ${integer(text.length)} characters`);
    fill(element, text.slice(0, maximum), '… ');
    return el('.clipped', element, more);
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
