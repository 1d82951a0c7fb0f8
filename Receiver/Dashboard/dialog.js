// Modal questions in the browser's own <dialog>: Escape and the backdrop leave it, the focus returns by itself.

import {el} from './dom.js';
import {icon} from './icons.js';

/// Opens it; it is gone from the document once closed. The content may close it by button value or close().
export function openDialog(title, content, {className = ''} = {}) {
    const heading = el('h2', {id: 'dialog-title'}, title);
    const close = el('button.quiet.square', {type: 'button', 'aria-label': 'Close', onclick: () => dialog.close()}, icon('close'));
    const dialog = el('dialog', {'aria-labelledby': 'dialog-title', className},
        el('.dialog-head', heading, close), content);
    dialog.addEventListener('click', (event) => event.target === dialog && dialog.close());
    dialog.addEventListener('close', () => dialog.remove());
    document.body.append(dialog);
    dialog.showModal();
    return dialog;
}

/// Asks before something is done for good. `action` may reject: the dialog then says why and stays.
export function confirmDialog({title, text, button, danger = true, action}) {
    const problem = el('p.problem', {role: 'alert', hidden: true});
    const act = el('button', {type: 'button', className: danger ? 'danger' : 'primary', onclick: run}, button);
    const cancel = el('button', {type: 'button', onclick: () => dialog.close()}, 'Cancel');
    const dialog = openDialog(title, el('.dialog-body', el('p', text), problem, el('.dialog-buttons', cancel, act)));
    (danger ? cancel : act).focus();
    async function run() {
        act.disabled = true;
        try {
            await action();
            dialog.close();
        } catch (error) {
            problem.textContent = error.message;
            problem.hidden = false;
            act.disabled = false;
        }
    }
    return dialog;
}
