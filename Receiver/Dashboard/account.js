// The administrator's password and the way out.

import {change, connection, setCsrf} from './api.js';
import {el, fill} from './dom.js';
import {say} from './notify.js';

const shortest = 10; // characters

export function showAccount({place}) {
    document.title = 'Account · Wexel';
    const now = field('current', 'Current password', 'current-password');
    const next = field('new', `New password, at least ${shortest} characters`, 'new-password');
    const again = field('again', 'New password again', 'new-password');
    const problem = el('p.problem', {role: 'alert'});
    let isSending = false;
    const form = el('form.panel.form', {onsubmit: submit}, el('h2', 'Password'),
        el('input.off-screen', {type: 'text', name: 'username', value: 'administrator', autocomplete: 'username', tabIndex: -1, 'aria-hidden': 'true', readonly: true}),
        [now, next, again].map(({label, input}) => [label, input]), problem,
        el('button.primary', {type: 'submit'}, 'Change the password'));
    fill(place, el('h1', 'Account'), form, el('section.panel', el('h2', 'Session'),
        el('p', 'You are logged in on this browser.'), el('button', {type: 'button', onclick: logOut}, 'Log out')));

    async function submit(event) {
        event.preventDefault();
        if (isSending)
            return; // twice, the second one would end the session of the first
        problem.textContent = [...next.input.value].length < shortest ? `The new password needs ${shortest} characters.`
            : next.input.value !== again.input.value ? 'The new passwords differ.' : '';
        if (problem.textContent)
            return;
        isSending = true;
        try {
            setCsrf((await change('POST', 'password', {current: now.input.value, new: next.input.value})).csrf);
            form.reset();
            say('The password is changed. All other sessions are over.');
        } catch (error) {
            problem.textContent = error.status === 403 ? 'The current password is not right.' : error.message;
        }
        isSending = false;
    }
}

async function logOut() {
    try {
        await change('DELETE', 'session');
    } catch (error) {
        if (error.status !== 401)
            return say(error.message);
    }
    connection.dispatchEvent(new Event('logged-out'));
}

function field(name, words, autocomplete) {
    return {label: el('label', {htmlFor: name}, words), input: el('input', {type: 'password', id: name, name, autocomplete, required: true})};
}
