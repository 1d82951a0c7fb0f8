// Modal questions in the browser's own <dialog>: Escape and the backdrop leave it, the focus returns by itself.

import {el, fill} from './dom.js';
import {icon} from './icons.js';

/// Opens it; it is gone from the document once closed. The content may close it by close(); with `mustAnswer` nothing else does.
export function openDialog(title, content, {className = '', mustAnswer = false} = {}) {
    const heading = el('h2', {id: 'dialog-title'}, title);
    const close = el('button.quiet.square', {type: 'button', 'aria-label': 'Close', onclick: () => dialog.close()}, icon('close'));
    const dialog = el('dialog', {'aria-labelledby': 'dialog-title', className: mustAnswer ? 'must-answer' : className, closedby: mustAnswer && 'none'},
        el('.dialog-head', heading, !mustAnswer && close), content);
    let pressed = null; // a selection may begin in a field and end on the backdrop
    if (mustAnswer)
        dialog.addEventListener('cancel', (event) => event.preventDefault()); // for browsers that don't know "closedby"
    else
        dialog.addEventListener('click', (event) => event.target === dialog && pressed === dialog && dialog.close());
    dialog.addEventListener('pointerdown', ({target}) => { pressed = target; });
    dialog.addEventListener('close', () => {
        dialog.remove();
        if (document.activeElement === document.body) // what had the focus is gone
            document.querySelector('main')?.focus({preventScroll: true});
    });
    document.body.append(dialog);
    dialog.showModal();
    return dialog;
}

/// Asks for the values of `fields`. `action` may reject: the dialog then says why and stays. What it resolves to, if anything,
/// is called when the dialog has gone. `fieldOf(error)` is the field to be changed, if one is.
export function formDialog({title, fields, button, action, fieldOf = () => null}) {
    const act = el('button.primary', {type: 'submit'}, button);
    const cancel = el('button', {type: 'button', onclick: () => dialog.close()}, 'Cancel');
    const problem = problemLine();
    const run = attempt(action, act, problem, () => dialog.close(), fieldOf);
    const onsubmit = (event) => {
        event.preventDefault();
        run();
    };
    const dialog = openDialog(title, el('form.dialog-body', {onsubmit}, fields, problem, el('.dialog-buttons', cancel, act)));
    dialog.querySelector('input, textarea').focus();
}

/// Asks before something is done for good. `action` is as above.
export function confirmDialog({title, text, button, danger = true, action}) {
    const act = el('button', {type: 'button', className: danger ? 'danger' : 'primary', onclick: () => run()}, button);
    const cancel = el('button', {type: 'button', onclick: () => dialog.close()}, 'Cancel');
    const problem = problemLine();
    const run = attempt(action, act, problem, () => dialog.close());
    const dialog = openDialog(title, el('.dialog-body', el('p', text), problem, el('.dialog-buttons', cancel, act)));
    (danger ? cancel : act).focus();
    return dialog;
}

const problemLine = () => el('p.problem', {id: 'dialog-problem', role: 'alert', hidden: true});

function attempt(action, button, problem, done, fieldOf = () => null) {
    let field = null; // the one that was refused
    return async () => {
        button.disabled = true;
        field?.removeAttribute('aria-invalid');
        field?.removeAttribute('aria-describedby');
        try {
            const then = await action();
            done();
            then?.();
        } catch (error) {
            fill(problem, error.message).hidden = false;
            button.disabled = false;
            field = fieldOf(error);
            field?.setAttribute('aria-invalid', 'true');
            field?.setAttribute('aria-describedby', problem.id);
            (field ?? button).focus();
        }
    };
}
