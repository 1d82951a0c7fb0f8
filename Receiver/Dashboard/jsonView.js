// JSON as indented, coloured, selectable text.

import {el} from './dom.js';
import {clippedText} from './clipped.js';

const mostShown = 200000; // characters
const token = /("(?:[^"\\]|\\.)*")(\s*:)?|-?\d[\d.eE+-]*|true|false|null/g;

/// The text indented if it is JSON, else null.
export function prettyJson(text) {
    const start = text.trimStart()[0];
    if (start !== '{' && start !== '[')
        return null;
    try {
        return JSON.stringify(JSON.parse(text), null, 2);
    } catch {
        return null;
    }
}

export function jsonView(text) {
    if (text.length > mostShown)
        return clippedText('pre.code', text, mostShown);
    const pre = el('pre.code', {dir: 'ltr'});
    let end = 0;
    for (const match of text.matchAll(token)) {
        pre.append(text.slice(end, match.index), el('span.' + kind(match), match[0]));
        end = match.index + match[0].length;
    }
    pre.append(text.slice(end));
    return pre;
}

/// Keys can scroll it, so it has a name.
export function scrollable(view, label) {
    const pre = view.closest('pre') ?? view.querySelector('pre');
    pre.tabIndex = 0;
    pre.setAttribute('role', 'region');
    pre.setAttribute('aria-label', label);
    return view;
}

function kind([whole, string, colon]) {
    if (string)
        return colon ? 'json-key' : 'json-text';
    return /[\d]/.test(whole) ? 'json-number' : 'json-word';
}
