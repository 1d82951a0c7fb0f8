// Small words about what was done, and copying.

import {el, fill} from './dom.js';
import {icon} from './icons.js';

const shownFor = 4000; // milliseconds
let place = null;

/// In the place of what was said before.
export function say(text) {
    if (!place?.isConnected)
        document.body.append(place = el('.toasts', {role: 'status'}));
    const toast = el('.toast', text);
    fill(place, toast);
    setTimeout(() => toast.remove(), shownFor);
}

/// Also over plain HTTP, where the browser has no clipboard for pages. Whether it has copied.
async function copy(text) {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        const focused = document.activeElement;
        const area = el('textarea.off-screen', {value: text});
        (document.querySelector('dialog[open]') ?? document.body).append(area);
        area.focus({preventScroll: true});
        area.select();
        const isCopied = document.execCommand('copy');
        area.remove();
        focused?.focus({preventScroll: true});
        return isCopied;
    }
}

/// Says on itself that it has copied, for a dialog may lie over all else.
export function copyButton(makeText) {
    const label = el('span', {role: 'status'}, 'Copy');
    return el('button.quiet.small.copy', {type: 'button', async onclick(event) {
        event.stopPropagation();
        label.textContent = await copy(makeText()) ? 'Copied' : 'Failed';
        setTimeout(() => { label.textContent = 'Copy'; }, shownFor / 2);
    }}, icon('copy'), label);
}
