import {change, get, mayPass} from './api.js';
import {el, fill} from './dom.js';

/// Takes the whole page until the password is right. `reason`: why it came in the middle of something else.
export function showLogin(enter, reason = '') {
    const problem = el('p.problem', {role: 'alert'});
    const password = el('input', {type: 'password', id: 'password', name: 'password', autocomplete: 'current-password', required: true, 'aria-describedby': 'reason'});
    const button = el('button.primary', {type: 'submit'}, 'Log in');
    const form = el('form.login', {onsubmit: submit},
        el('img', {src: 'assets/icon.svg', alt: '', width: 48, height: 48}),
        el('h1', 'Wexel'), el('p.reason', {id: 'reason', role: 'status', hidden: !reason}, reason),
        el('input.off-screen', {type: 'text', name: 'username', value: 'administrator', autocomplete: 'username', tabIndex: -1, 'aria-hidden': 'true', readonly: true}),
        el('label', {htmlFor: 'password'}, 'Password'),
        password, button, problem,
        el('p.faint', 'The receiver printed it at its first start. ', el('code', 'wexel-receiver password'), ' sets a new one.'));
    document.title = 'Log in · Wexel';
    fill(document.body, el('main.login-page', form));
    password.focus();

    async function submit(event) {
        event.preventDefault();
        button.disabled = true;
        problem.textContent = '';
        try {
            await change('POST', 'session', {password: password.value});
            enter(await get('session').catch(noCookie));
        } catch (error) {
            explain(error);
        }
    }

    /// The password was right.
    function noCookie(error) {
        throw error.status === 401 ? new Error('That is the password, but the browser did not keep its cookie. Allow cookies here;'
            + ' if the receiver’s public address begins with https, use that one.') : error;
    }

    function explain(error) {
        if (error.status === 429)
            return countDown(Math.ceil(error.retryAfter || 60));
        button.disabled = false;
        problem.textContent = error.status === 401 ? 'That is not the password.'
            : mayPass(error) ? `${error.message} Try again in a moment.` : error.message;
        password.select();
    }

    function countDown(seconds) {
        problem.textContent = seconds > 0 ? `Too many attempts. Try again in ${seconds} s.` : '';
        button.disabled = seconds > 0;
        if (seconds > 0 && problem.isConnected)
            setTimeout(() => {
                problem.ariaLive = seconds > 1 ? 'off' : null; // the first words are read out, not every second
                countDown(seconds - 1);
            }, 1000);
    }
}
